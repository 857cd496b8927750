#include "CellRecorder.h"

namespace mv {

CellRecorder::~CellRecorder() = default;

}  // namespace mv

#include "InputSource.h"

namespace mv {

InputSource::~InputSource() = default;

}  // namespace mv

#include "EventOut.h"

namespace mv {

EventOut::EventOut() { setType(OUT_EVENT); }

}  // namespace mv

// An object's box has just left the world's boundary.
#pragma once

#include "Event.h"

namespace mv {

inline const std::string OUT_EVENT = "mv-out";

class EventOut : public Event {
 public:
  EventOut();
};

}  // namespace mv

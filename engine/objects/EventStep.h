// Raised once a frame, before anything else happens in it.
#pragma once

#include "Event.h"

namespace mv {

inline const std::string STEP_EVENT = "mv-step";

class EventStep : public Event {
 public:
  // `step_count` is the number of the frame, counted from 0 in each run.
  explicit EventStep(int step_count = 0);

  void setStepCount(int new_step_count);
  int getStepCount() const;

 private:
  int step_count;
};

}  // namespace mv

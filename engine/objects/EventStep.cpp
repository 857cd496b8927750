#include "EventStep.h"

namespace mv {

EventStep::EventStep(int new_step_count) : step_count(new_step_count) { setType(STEP_EVENT); }

void EventStep::setStepCount(int new_step_count) { step_count = new_step_count; }

int EventStep::getStepCount() const { return step_count; }

}  // namespace mv

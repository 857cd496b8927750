// Sets, or adds to, the value of the heads-up displays whose text is `tag`.
#pragma once

#include "Event.h"

namespace mv {

inline const std::string VIEW_EVENT = "mv-view";

class EventView : public Event {
 public:
  EventView();
  // With `delta` the value is added to the display's value; without, it replaces it.
  EventView(std::string tag, int value, bool delta);

  void setTag(std::string new_tag);
  std::string getTag() const;
  void setValue(int new_value);
  int getValue() const;
  void setDelta(bool new_delta);
  bool getDelta() const;

 private:
  std::string tag;
  int value;
  bool delta;
};

}  // namespace mv

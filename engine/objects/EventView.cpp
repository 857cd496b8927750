#include "EventView.h"

#include <utility>

namespace mv {

EventView::EventView() : EventView("", 0, false) {}

EventView::EventView(std::string new_tag, int new_value, bool new_delta)
    : tag(std::move(new_tag)), value(new_value), delta(new_delta) {
  setType(VIEW_EVENT);
}

void EventView::setTag(std::string new_tag) { tag = std::move(new_tag); }
std::string EventView::getTag() const { return tag; }
void EventView::setValue(int new_value) { value = new_value; }
int EventView::getValue() const { return value; }
void EventView::setDelta(bool new_delta) { delta = new_delta; }
bool EventView::getDelta() const { return delta; }

}  // namespace mv

#include "Button.h"

#include "Attribute.h"
#include "geometry.h"

namespace mv {

Button::Button() : highlight_color(RED), default_color(WHITE) {
  setType("Button");
  setLocation(CENTER_CENTER);
  setViewString("button");
  setColor(WHITE);
  markModified(BUTTON_APPEARANCE);
  setBorder(true);
  registerInterest(MOUSE_EVENT);
  setDrawValue(false);
  markModified(BUTTON_APPEARANCE);
}

bool Button::mouseInside(const EventMouse* event) const {
  const float length = static_cast<float>(getViewString().size());
  const float width = getBorder() ? length + 4 : length;
  const float height = getBorder() ? 3 : 1;
  const Vector corner(getPosition().getX() - width * 0.5f, getPosition().getY() - height * 0.5f);
  return boxContainsPosition(Box(corner, width, height), event->getMousePosition());
}

int Button::eventHandler(const Event* event) {
  if (event->getType() != MOUSE_EVENT) {
    return 0;
  }
  const auto* mouse = dynamic_cast<const EventMouse*>(event);
  if (mouse == nullptr) {
    return 0;
  }
  if (!mouseInside(mouse)) {
    setColor(default_color);
    return 1;
  }
  setColor(highlight_color);
  if (mouse->getMouseAction() == CLICKED) {
    onClick();
  }
  return 1;
}

void Button::setDefaultColor(Color new_default_color) {
  default_color = new_default_color;
  markModified(BUTTON_APPEARANCE);
}

Color Button::getDefaultColor() const { return default_color; }

void Button::setHighlightColor(Color new_highlight_color) {
  highlight_color = new_highlight_color;
  markModified(BUTTON_APPEARANCE);
}

Color Button::getHighlightColor() const { return highlight_color; }

}  // namespace mv

#include "Button.h"

#include <sstream>

#include "Attribute.h"
#include "ByteReader.h"
#include "ByteWriter.h"
#include "LogManager.h"
#include "geometry.h"
#include "utility.h"

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

int Button::serialize(std::stringstream& stream, unsigned attr) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(20, "Button::serialize(): serializing attributes");
  log.writeLog(20, "Button::serialize(): attr is %u, modified is %u (%s)", attr, getModified(),
               boolToString(isModified()));
  ViewObject::serialize(stream, attr);
  unsigned mask = getModified();
  if (((attr != 0 ? attr : mask) & BUTTON_APPEARANCE) != 0) {
    log.writeLog(25, "\tAPPEARANCE");
    ByteWriter out(stream);
    out.writeInt(default_color);
    out.writeInt(highlight_color);
    logColors();
    mask &= ~BUTTON_APPEARANCE;
  }
  setModified(mask);
  return checkStream("Button::serialize()", stream);
}

int Button::deserialize(std::stringstream& stream, unsigned* attr) {
  unsigned local_attr;
  unsigned* record = attr != nullptr ? attr : &local_attr;
  const int result = ViewObject::deserialize(stream, record);
  if (result != 0) {
    return result;
  }
  ByteReader in(stream, "Button::deserialize()");
  int new_default_color, new_highlight_color;
  if ((*record & BUTTON_APPEARANCE) != 0 && in.readInt(new_default_color) &&
      in.readInt(new_highlight_color)) {
    LogManager::getInstance().writeLog(25, "\tAPPEARANCE");
    setDefaultColor(static_cast<Color>(new_default_color));
    setHighlightColor(static_cast<Color>(new_highlight_color));
    logColors();
  }
  // What came from the stream counts as written.
  setModified(0);
  LogManager::getInstance().writeLog(20, "Button::deserialize(): done checking all types.");
  return checkStream("Button::deserialize()", stream);
}

void Button::logColors() const {
  LogManager& log = LogManager::getInstance();
  log.writeLog(25, "\tDEFAULT_COLOR: %s", colorToString(default_color).c_str());
  log.writeLog(25, "\tHIGHLIGHT_COLOR: %s", colorToString(highlight_color).c_str());
}

}  // namespace mv

#include "ViewObject.h"

#include <sstream>
#include <utility>

#include "Attribute.h"
#include "ByteReader.h"
#include "ByteWriter.h"
#include "DisplayManager.h"
#include "EventView.h"
#include "LogManager.h"
#include "WorldManager.h"
#include "geometry.h"
#include "utility.h"

namespace mv {

ViewObject::ViewObject() : value(0), draw_value(true), border(true), color(WHITE), location(-1) {
  setSolidness(SPECTRAL);
  setAltitude(4);
  setType("ViewObject");
  const float view_width = WorldManager::getInstance().getView().getHorizontal();
  setPosition(Vector(view_width * 3 / 6, 1));
  location = TOP_CENTER;
  markModified(VIEW_APPEARANCE);
  registerInterest(VIEW_EVENT);
  markModified(VIEW_VALUE | VIEW_APPEARANCE);
}

void ViewObject::setPosition(Vector new_position) {
  if (new_position == getPosition()) {
    return;
  }
  location = -1;
  Object::setPosition(new_position);
  markModified(VIEW_APPEARANCE);
}

void ViewObject::setLocation(ViewObjectLocation new_location) {
  if (static_cast<unsigned>(new_location) > BOTTOM_RIGHT) {
    LogManager::getInstance().writeLog(
        "ViewObject::setLocation(): Warning! Location out of range (%d). Ignored.",
        static_cast<int>(new_location));
    return;
  }
  const Box view = WorldManager::getInstance().getView();
  const float h = view.getHorizontal();
  const float v = view.getVertical();
  const int column = new_location % 3;
  const int row = new_location / 3;
  const float x = column == 0 ? h / 6 : column == 1 ? h * 3 / 6 : h * 5 / 6;
  // The border takes a row above and below the text, so the text keeps off the edges.
  float y = 0;
  if (row == 0) {
    y = border ? 1 : 0;
  } else if (row == 1) {
    y = border ? v * 0.5f : v * 0.5f - 1;
  } else {
    y = border ? v - 2 : v - 1;
  }
  setPosition(Vector(x, y));
  location = new_location;
  markModified(VIEW_APPEARANCE);
}

ViewObjectLocation ViewObject::getLocation() const {
  return static_cast<ViewObjectLocation>(location);
}

void ViewObject::setDrawValue(bool new_draw_value) {
  if (new_draw_value != draw_value) {
    draw_value = new_draw_value;
    markModified(VIEW_APPEARANCE);
  }
}

bool ViewObject::getDrawValue() const { return draw_value; }

void ViewObject::setValue(int new_value) {
  if (new_value != value) {
    value = new_value;
    markModified(VIEW_VALUE);
  }
}

int ViewObject::getValue() const { return value; }

void ViewObject::setBorder(bool new_border) {
  if (new_border == border) {
    return;
  }
  border = new_border;
  markModified(VIEW_APPEARANCE);
  if (location != -1) {
    setLocation(static_cast<ViewObjectLocation>(location));
  }
}

bool ViewObject::getBorder() const { return border; }

void ViewObject::setColor(Color new_color) {
  if (new_color != color) {
    color = new_color;
    markModified(VIEW_APPEARANCE);
  }
}

Color ViewObject::getColor() const { return color; }

void ViewObject::setViewString(std::string new_view_string) {
  if (new_view_string != view_string) {
    view_string = std::move(new_view_string);
    markModified(VIEW_APPEARANCE);
  }
}

std::string ViewObject::getViewString() const { return view_string; }

int ViewObject::eventHandler(const Event* event) {
  if (event->getType() != VIEW_EVENT) {
    return Object::eventHandler(event);
  }
  const auto* view_event = dynamic_cast<const EventView*>(event);
  if (view_event == nullptr || view_event->getTag() != view_string) {
    return 0;
  }
  setValue(view_event->getDelta() ? value + view_event->getValue() : view_event->getValue());
  return 1;
}

std::string ViewObject::displayedText() const {
  std::string text = view_string;
  if (draw_value) {
    text += " " + std::to_string(value);
  }
  return border ? " " + text + " " : text;
}

int ViewObject::draw() {
  const std::string text = displayedText();
  // Drawing takes world positions: the view's corner is added here and taken
  // off again by the display, which keeps the object fixed on the screen.
  const Vector pos = viewToWorld(getPosition());
  DisplayManager& display = DisplayManager::getInstance();
  int result = display.drawString(pos, text, CENTER, color);
  if (border) {
    const int length = static_cast<int>(text.size());
    const std::string hyphens(length, '-');
    result += display.drawString(Vector(pos.getX(), pos.getY() - 1), hyphens, CENTER, color);
    result += display.drawString(Vector(pos.getX(), pos.getY() + 1), hyphens, CENTER, color);
    const float left_bar = pos.getX() - static_cast<float>(length / 2) - 1;
    result += display.drawCharacter(Vector(left_bar, pos.getY()), '|', color, 0);
    result += display.drawCharacter(Vector(left_bar + length + 1, pos.getY()), '|', color, 0);
  }
  return result;
}

int ViewObject::serialize(std::stringstream& stream, unsigned attr) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(20, "ViewObject::serialize(): serializing attributes");
  log.writeLog(20, "ViewObject::serialize(): attr is %u, modified is %u (%s)", attr, getModified(),
               boolToString(isModified()));
  Object::serialize(stream, attr);
  unsigned mask = getModified();
  const unsigned record = attr != 0 ? attr : mask;
  ByteWriter out(stream);
  if ((record & VIEW_VALUE) != 0) {
    log.writeLog(25, "\tVALUE");
    out.writeInt(value);
    mask &= ~VIEW_VALUE;
  }
  if ((record & VIEW_APPEARANCE) != 0) {
    log.writeLog(25, "\tAPPEARANCE");
    out.writeString(view_string);
    out.writeBool(border);
    out.writeInt(color);
    out.writeInt(location);
    out.writeBool(draw_value);
    logAppearance();
    mask &= ~VIEW_APPEARANCE;
  }
  setModified(mask);
  return checkStream("ViewObject::serialize()", stream);
}

int ViewObject::deserialize(std::stringstream& stream, unsigned* attr) {
  unsigned local_attr;
  unsigned* record = attr != nullptr ? attr : &local_attr;
  const int result = Object::deserialize(stream, record);
  LogManager& log = LogManager::getInstance();
  if (result != 0) {
    log.writeLog("ViewObject::deserialize(): Error calling Object::deserialize().");
    return result;
  }
  log.writeLog(20, "ViewObject::deserialize(): attr %u (%s)", *record,
               toBinaryString(*record).c_str());
  ByteReader in(stream, "ViewObject::deserialize()");
  int new_value;
  if ((*record & VIEW_VALUE) != 0 && in.readInt(new_value)) {
    setValue(new_value);
    log.writeLog(25, "\tVALUE: %d", value);
  }
  std::string new_view_string;
  bool new_border, new_draw_value;
  int new_color, new_location;
  if ((*record & VIEW_APPEARANCE) != 0 && in.readString(new_view_string) &&
      in.readBool(new_border) && in.readInt(new_color) && in.readInt(new_location) &&
      in.readBool(new_draw_value)) {
    setViewString(new_view_string);
    setBorder(new_border);
    setColor(static_cast<Color>(new_color));
    setLocation(static_cast<ViewObjectLocation>(new_location));
    setDrawValue(new_draw_value);
    logAppearance();
  }
  // What came from the stream counts as written.
  setModified(0);
  log.writeLog(20, "ViewObject::deserialize(): done checking all types.");
  return checkStream("ViewObject::deserialize()", stream);
}

void ViewObject::logAppearance() const {
  LogManager& log = LogManager::getInstance();
  if (log.getLogLevel() < 25) {
    return;
  }
  log.writeLog(25, "\tVIEW_STRING: %s", view_string.c_str());
  log.writeLog(25, "\tBORDER: %s", boolToString(border));
  log.writeLog(25, "\tCOLOR: %s", colorToString(color).c_str());
  log.writeLog(25, "\tLOCATION: %s",
               locationToString(static_cast<ViewObjectLocation>(location)).c_str());
  log.writeLog(25, "\tDRAW_VALUE: %s", boolToString(draw_value));
}

}  // namespace mv

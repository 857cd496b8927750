// A heads-up display: a label, optionally followed by a number, optionally in
// a one-cell border, standing at a fixed place on the screen while the world
// scrolls beneath it. Any part of the game can set or add to its number with
// an "mv-view" event that names its label.
#pragma once

#include <iosfwd>
#include <string>

#include "Color.h"
#include "Object.h"
#include "ViewObjectLocation.h"

namespace mv {

class ViewObject : public Object {
 public:
  // Spectral, at altitude 4, at the top centre of the view, with a border.
  ViewObject();

  // Leaves the named location: the object stays where it is put.
  void setPosition(Vector new_position) override;
  // Follows "mv-view" events whose tag is its label.
  int eventHandler(const Event* event) override;
  // The label and value, centred on the position, with the border around them.
  int draw() override;
  // Behind the object's own attributes: the value, then the appearance.
  int serialize(std::stringstream& stream, unsigned attr = 0) override;
  int deserialize(std::stringstream& stream, unsigned* attr = nullptr) override;

  // One of the nine places on the screen; -1 and anything past 8 are refused.
  virtual void setLocation(ViewObjectLocation new_location);
  ViewObjectLocation getLocation() const;
  virtual void setDrawValue(bool new_draw_value);
  bool getDrawValue() const;
  virtual void setValue(int new_value);
  int getValue() const;
  // The place of a location depends on the border, so the object moves with it.
  virtual void setBorder(bool new_border);
  bool getBorder() const;
  virtual void setColor(Color new_color);
  Color getColor() const;
  virtual void setViewString(std::string new_view_string);
  std::string getViewString() const;

 private:
  std::string displayedText() const;
  void logAppearance() const;

  std::string view_string;
  int value;
  bool draw_value;
  bool border;
  Color color;
  // -1 once the position was set directly.
  int location;
};

}  // namespace mv

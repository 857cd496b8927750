// A heads-up display that answers to the mouse: it lights up while the mouse
// is over it and calls onClick when clicked. The action is a derived class's.
#pragma once

#include <iosfwd>

#include "Color.h"
#include "EventMouse.h"
#include "ViewObject.h"

namespace mv {

class Button : public ViewObject {
 public:
  // "button", bordered, at the centre of the view.
  Button();

  // What the button does when clicked, with any mouse button.
  virtual void onClick() = 0;

  // Follows the mouse alone: the colour shows whether it is over the button.
  int eventHandler(const Event* event) override;
  // Behind the view object's attributes: the default colour, then the highlight.
  int serialize(std::stringstream& stream, unsigned attr = 0) override;
  int deserialize(std::stringstream& stream, unsigned* attr = nullptr) override;

  // Whether the mouse stands on the button's label or its border, edges included.
  bool mouseInside(const EventMouse* event) const;

  // The colour now showing stays until the mouse next moves.
  void setDefaultColor(Color new_default_color);
  Color getDefaultColor() const;
  void setHighlightColor(Color new_highlight_color);
  Color getHighlightColor() const;

 private:
  void logColors() const;

  Color highlight_color;
  Color default_color;
};

}  // namespace mv

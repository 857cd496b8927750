// A small filled figure drawn in pixels straight into the window, over or
// under the character cells in the order of drawing: a circle, a square or a
// triangle. Type -1 is no figure at all.
#pragma once

#include <iosfwd>
#include <string>

#include "Color.h"
#include "Vector.h"

namespace mv {

class Shape {
 public:
  static constexpr int UNDEFINED = -1;
  static constexpr int CIRCLE = 0;
  static constexpr int SQUARE = 1;
  static constexpr int TRIANGLE = 2;

  // A white, opaque circle as large as a character's size.
  Shape();

  // Keeps the old type, with a line in the log, for anything but -1 to 2.
  void setType(int t);
  int getType() const;

  void setSize(float s);
  float getSize() const;

  // Gives the figure its own colour, CUSTOM.
  void setColorRGB(unsigned char new_r, unsigned char new_g, unsigned char new_b);
  Color getColor() const;

  void setOpacity(unsigned char o);
  unsigned char getOpacity() const;

  // Centred near the cell at `position`; nothing without a window or a type.
  void draw(Vector position);

  // "circle, size 8.000000, White, 255".
  std::string toString() const;

  // Thirteen bytes: type, size, colour, opacity. The red, green and blue of a
  // CUSTOM colour do not travel: a shape read back keeps its own.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  Color color;
  unsigned char r, g, b;
  int type;
  float size;
  unsigned char opacity;
};

}  // namespace mv

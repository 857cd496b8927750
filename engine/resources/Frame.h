// One picture of a sprite: a rectangle of characters stored row after row.
#pragma once

#include <string>

#include "Color.h"
#include "Vector.h"

namespace mv {

class Frame {
 public:
  Frame();
  // The character at column x of row y is frame_str[y * width + x].
  Frame(int width, int height, std::string frame_str);

  int getWidth() const;
  int getHeight() const;
  std::string getString() const;

  // Draws the frame centred on `position`, skipping the `transparency`
  // character unless it is 0. -1 as soon as a character can't be drawn.
  int draw(Vector position, Color color, char transparency) const;

 private:
  int width;
  int height;
  std::string frame_str;
};

}  // namespace mv

// A screen of cells recorded as text, for tests that compare a whole picture
// at a glance. Set it as the display's cell recorder, draw, then compare
// text() or colors() with the expected picture written in the test.
#pragma once

#include <string>
#include <vector>

#include "CellRecorder.h"
#include "Color.h"

namespace mv_test {

class TextScreen : public mv::CellRecorder {
 public:
  // A screen of blanks, `width` by `height` cells.
  TextScreen(int width, int height);

  // A cell lands in the whole cell that holds its position (fractions round
  // down); cells off the screen are counted, not kept.
  void recordCell(mv::Vector position, char character, unsigned char r, unsigned char g,
                  unsigned char b) override;

  // One line per row, each ending in "\n".
  std::string text() const;

  // The same grid with each cell's colour: the digit of its Color, "?" for
  // any other red, green and blue, and "." where nothing was drawn.
  std::string colors() const;

  int offScreen() const;

 private:
  std::vector<std::string> characters;
  std::vector<std::string> color_digits;
  int off_screen = 0;
};

}  // namespace mv_test

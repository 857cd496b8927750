// A window onto what the display is asked to draw, for tests that compare a
// whole screen as text. Add one with DisplayManager::addCellRecorder; it then
// sees every cell that drawCharacter takes, in headless mode too.
#pragma once

#include "Vector.h"

namespace mv {

class CellRecorder {
 public:
  virtual ~CellRecorder();

  // One call of drawCharacter: the cell on the screen, the character and its colour.
  virtual void recordCell(Vector position, char character, unsigned char r, unsigned char g,
                          unsigned char b) = 0;
};

}  // namespace mv

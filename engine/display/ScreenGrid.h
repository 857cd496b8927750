// The screen as plain data: a grid of cells, each the last character drawn in
// it this frame with its colour, or nothing. As the display's cell recorder it
// takes a frame as the game draws it, to be compared, sent or drawn again.
#pragma once

#include <cstddef>
#include <vector>

#include "CellRecorder.h"

namespace mv {

struct ScreenCell {
  char character = ' ';
  unsigned char r = 0;
  unsigned char g = 0;
  unsigned char b = 0;
  // Where in its whole cell it was drawn, in parts of a cell from 0 up to 1:
  // exactly, so that the whole cell and these give its position back.
  float across = 0.0f;
  float down = 0.0f;
  bool drawn = false;

  bool operator==(const ScreenCell& other) const;
  bool operator!=(const ScreenCell& other) const;
};

class ScreenGrid : public CellRecorder {
 public:
  // A grid of `width` by `height` cells, none of them drawn.
  ScreenGrid(int width, int height);

  // A cell lands in the whole cell that holds its position, which keeps the
  // fractions as well; one off the grid is dropped.
  void recordCell(Vector position, char character, unsigned char r, unsigned char g,
                  unsigned char b) override;

  // Every cell back to not drawn, as the display's buffer is at a frame's start.
  void clear();
  // Trades cells with `other`, as swapping a display's buffers does.
  void swapCells(ScreenGrid& other);

  int getWidth() const;
  int getHeight() const;
  // Cells row by row, from the top left.
  const std::vector<ScreenCell>& getCells() const;
  // Sets the cell at `index` in that order; an index off the grid is refused with false.
  bool setCell(std::size_t index, const ScreenCell& cell);

  // Draws every drawn cell where it was drawn, row by row.
  void draw() const;

 private:
  int width;
  int height;
  std::vector<ScreenCell> cells;
};

}  // namespace mv

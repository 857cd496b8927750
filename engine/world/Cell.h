// A cell of the spatial grid, and the ordered set of cells that a box covers.
#pragma once

#include <vector>

namespace mv {

struct Cell {
  int x;
  int y;

  bool operator==(const Cell& other) const { return x == other.x && y == other.y; }
  // Row by row from the top, each row from the left.
  bool operator<(const Cell& other) const { return y != other.y ? y < other.y : x < other.x; }
};

// Stands for the list of objects that reach past the grid's edge.
constexpr Cell OUT_OF_BOUNDS{-1, -1};

// Cells in ascending order and without repeats: OUT_OF_BOUNDS first, then the rows.
using CellSet = std::vector<Cell>;

}  // namespace mv

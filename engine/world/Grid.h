// The spatial index of solid objects: the world's boundary cut into cells of a
// configured size, each listing the objects whose box touches it. Objects that
// reach past the boundary are kept in a list of their own, so that they still
// collide with each other out there.
#pragma once

#include <vector>

#include "Cell.h"
#include "ObjectList.h"
#include "Vector.h"

namespace mv {

class Object;

class Grid {
 public:
  // Takes the cell size from the configuration; no cells until startUp.
  Grid();

  // Cuts the world's current boundary into cells: 0, or -1 if started already
  // or the cells can't be had.
  int startUp();
  void shutDown();
  bool isStarted() const;

  // The cells that `o`'s box touches when `o` stands at `where`. The far edges
  // belong to the box, so a box ending on a cell line also takes the next cell.
  CellSet getCells(const Object* o, Vector where) const;

  int insertObject(Object* o);
  int removeObject(Object* o);
  // Moves `o` into the cells it will touch at `where`; cells it stays in keep its place.
  int updatePosition(Object* o, Vector where);

  // Solid objects other than `o` that its box touches at `where`, in cell order:
  // those past the boundary first, then row by row from the top.
  ObjectList getCollisions(const Object* o, Vector where) const;

  int getColumnCount() const;
  int getRowCount() const;
  // The objects listed in one cell, OUT_OF_BOUNDS included; empty for cells off the grid.
  ObjectList objectsInCell(Cell cell) const;

 private:
  ObjectList* cellList(Cell cell);
  const ObjectList* cellList(Cell cell) const;
  bool canUse(const Object* o, const char* where) const;

  bool started;
  // Row-major: cell (x, y) is at y * m_num_cols + x.
  std::vector<ObjectList> m_grid;
  ObjectList m_out_of_bounds;
  int m_num_cols;
  int m_num_rows;
  int m_cell_width;
  int m_cell_height;
};

}  // namespace mv

// One search for a way across the world for one object, cut into single
// expansions so that it never holds up a frame: the path manager runs them in
// whatever time a frame has left. The graph has a node for every whole
// position of the world; HARD objects block, all else does not.
#pragma once

#include <vector>

#include "Cell.h"
#include "Path.h"
#include "Vector.h"

namespace mv {

class Object;

class PathFind {
 public:
  // A search for `object` from where it stands to `goal`, both taken to the
  // nearest whole cell. With a `target`, the search ends as soon as the
  // object would touch it. The graph is sized to the world's boundary now.
  PathFind(Object* object, Vector goal, Object* target = nullptr);

  // One expansion: 0 when no path exists or the graph is missing, 1 while
  // searching, 2 when found.
  int cycleOnce();

  // Whether `o` standing at (x, y) would meet a HARD object, other than one
  // that holds `end`: a search may end on a HARD target.
  bool isBlocked(const Object* o, int x, int y, Cell end) const;

  // From the start cell to the end cell; empty until found.
  Path getPath() const;
  Object* getObject() const;
  // How many cells have been expanded so far.
  int getExpansions() const;

 private:
  struct Node {
    float cost = 0;
    float total = 0;
    Cell parent{0, 0};
  };

  Node& nodeAt(Cell c);
  const Node& nodeAt(Cell c) const;
  bool insideGraph(int x, int y) const;
  Cell takeBestOpenCell();
  bool touchesTarget(Cell c) const;
  void expandNeighbours(Cell current);
  bool cutsACorner(Cell current, int dx, int dy) const;
  bool inClosedList(Cell c) const;
  // Where `c` stands in the open list; -1 if it is not there.
  int openListIndex(Cell c) const;

  Object* object;
  Object* target;
  Cell start;
  Cell end;
  // Row by row, `graph_width` nodes each; it keeps the size it was made with,
  // so a boundary that changes during the search never takes it out of bounds.
  std::vector<Node> node_graph;
  int graph_width;
  int graph_height;
  // Found and not yet expanded, in order of discovery.
  std::vector<Cell> open_list;
  // Expanded; never reopened.
  std::vector<Cell> closed_list;
  bool found;
};

// The whole cell nearest to a world position.
Cell nearestCell(Vector position);

}  // namespace mv

// One search for a way across the world for one object, cut into single
// expansions so that it never holds up a frame: the path manager runs them in
// whatever time a frame has left. The graph has a node for every whole
// position of the world; HARD objects block, all else does not. The cells
// found and not yet expanded wait in a heap, each cell knows whether it is
// open or closed, and one look at the HARD objects when the search begins
// tells which cells they block, so an expansion costs little.
#pragma once

#include <optional>
#include <queue>
#include <vector>

#include "Box.h"
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
  virtual ~PathFind();

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
  // The cell the last expansion took.
  Cell getLastExpanded() const;

 protected:
  // The lowest total and, among equal totals, the cell found last is taken
  // out of the open cells; the start when none is open.
  virtual Cell takeBestOpenCell();
  virtual void close(Cell c);
  virtual bool isClosed(Cell c) const;
  virtual bool isOpen(Cell c) const;
  // A cell seen for the first time, its node already set.
  virtual void discovered(Cell c);
  // An open cell reached again at no greater cost, its node already set.
  virtual void reached(Cell c);
  virtual bool anyOpen() const;
  // Whether the searching object can't stand on (x, y). The world is taken
  // to hold still during a search: what blocks which cell is found once.
  virtual bool blockedAt(int x, int y);

  // What the way through `c` is reckoned to cost in all.
  float totalOf(Cell c) const;
  Cell getStart() const;
  Cell getEnd() const;

 private:
  struct Node {
    float cost = 0;
    float total = 0;
    Cell parent{0, 0};
  };
  // Where a cell waits in the heap: its total when it went in, and when it
  // was first found.
  struct Waiting {
    float total;
    int discovery;
    Cell cell;
    // Ranks below: a greater total, or an equal total found earlier.
    bool operator<(const Waiting& other) const;
  };
  enum class State : unsigned char { UNSEEN, OPEN, CLOSED };

  Node& nodeAt(Cell c);
  const Node& nodeAt(Cell c) const;
  std::size_t indexOf(Cell c) const;
  bool insideGraph(int x, int y) const;
  bool touchesTarget(Cell c) const;
  void expandNeighbours(Cell current);
  bool cutsACorner(Cell current, int dx, int dy);
  void sweepHardObjects();
  void markCellsMet(const Object* hard);

  Object* object;
  Cell start;
  Cell end;
  // The target's box standing on `end`, where the object first touching it
  // ends the search. Taken once, so that a target deleted during the search
  // is never read.
  std::optional<Box> target_box;
  // Row by row, `graph_width` nodes each; it keeps the size it was made with,
  // so a boundary that changes during the search never takes it out of bounds.
  std::vector<Node> node_graph;
  int graph_width;
  int graph_height;
  std::vector<State> state;
  // ASK: a HARD object that holds the end cell meets the object there, and
  // only the world's own order of collisions tells whether it blocks.
  enum class Blocked : unsigned char { NO, YES, ASK };
  std::vector<Blocked> blocked;
  bool swept;
  std::vector<int> discovery;
  int discoveries;
  int open_count;
  // Holds stale entries too, for cells since closed or reached more cheaply;
  // they are passed over when they come up.
  std::priority_queue<Waiting> open_heap;
  int expansions;
  Cell last_expanded;
  bool found;
};

// The whole cell nearest to a world position. A position far outside any world
// gives a cell far outside too (at most 2^30 off), never one inside it.
Cell nearestCell(Vector position);

}  // namespace mv

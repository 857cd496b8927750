#include "PathFind.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "LogManager.h"
#include "Object.h"
#include "ObjectList.h"
#include "SceneGraph.h"
#include "WorldManager.h"
#include "geometry.h"

namespace mv {

namespace {

// Where a cell stands in the world.
Vector at(Cell c) { return Vector(static_cast<float>(c.x), static_cast<float>(c.y)); }

// The straight-line distance, in double precision, narrowed as the nodes keep it.
float straightLine(int dx, int dy) {
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

// Beyond any world's graph, and well within an int.
constexpr float FAR_BEYOND = 0x1p30f;

// The whole number nearest `coordinate`, which is first held to +-2^30 so that
// it converts safely however far off it lies; not a number counts as far below.
int nearestWhole(float coordinate) {
  const float held = coordinate > -FAR_BEYOND ? std::min(coordinate, FAR_BEYOND) : -FAR_BEYOND;
  return static_cast<int>(std::lround(held));
}

// A run of whole cells along one axis; empty when `first` is past `last`.
struct Span {
  int first;
  int last;
};

// The whole cells from `first` to `last`, held to [0, count) while still
// doubles, so that a box however far outside the world converts safely.
Span cellsWithin(double first, double last, int count) {
  const double from = std::max(0.0, std::floor(first));
  const double to = std::min(count - 1.0, std::ceil(last));
  if (!(from <= to)) {
    return Span{0, -1};
  }
  return Span{static_cast<int>(from), static_cast<int>(to)};
}

// The cells at which a box `near` to `near + extent` from its cell can meet the
// range [low, high]. The world's collision test adds in float, which rounds by
// up to a part in 2^24 of the numbers added: the span is widened by twice that
// and by a cell on each side, so that it holds every cell the test could pass.
Span cellsMeeting(float low, float high, float near, float extent, int count) {
  const double slack =
      1.0 +
      (std::fabs(static_cast<double>(near)) + std::fabs(static_cast<double>(extent))) * 0x1p-22;
  return cellsWithin(static_cast<double>(low) - near - extent - slack,
                     static_cast<double>(high) - near + slack, count);
}

}  // namespace

Cell nearestCell(Vector position) {
  return Cell{nearestWhole(position.getX()), nearestWhole(position.getY())};
}

PathFind::PathFind(Object* object, Vector goal, Object* target)
    : object(object),
      start(nearestCell(object->getPosition())),
      end(nearestCell(goal)),
      target_box(target == nullptr ? std::nullopt
                                   : std::optional<Box>(getWorldBox(target, at(end)))),
      swept(false),
      discoveries(0),
      open_count(0),
      expansions(0),
      last_expanded(start),
      found(false) {
  const Box boundary = WorldManager::getInstance().getBoundary();
  graph_width = std::max(0, static_cast<int>(boundary.getHorizontal()));
  graph_height = std::max(0, static_cast<int>(boundary.getVertical()));
  const std::size_t cells = static_cast<std::size_t>(graph_width) * graph_height;
  node_graph.resize(cells);
  state.resize(cells, State::UNSEEN);
  blocked.resize(cells, Blocked::NO);
  discovery.resize(cells, 0);
}

PathFind::~PathFind() = default;

std::size_t PathFind::indexOf(Cell c) const {
  return static_cast<std::size_t>(c.y) * graph_width + c.x;
}

PathFind::Node& PathFind::nodeAt(Cell c) { return node_graph[indexOf(c)]; }

const PathFind::Node& PathFind::nodeAt(Cell c) const { return node_graph[indexOf(c)]; }

// A cell must lie both in the graph and in the boundary as it is now.
bool PathFind::insideGraph(int x, int y) const {
  const Box boundary = WorldManager::getInstance().getBoundary();
  return x >= 0 && y >= 0 && x < graph_width && y < graph_height &&
         x < static_cast<int>(boundary.getHorizontal()) &&
         y < static_cast<int>(boundary.getVertical());
}

int PathFind::cycleOnce() {
  if (node_graph.empty()) {
    LogManager::getInstance().writeLog(
        "PathFind::cycleOnce(): node graph not allocated.  Cannot find path.");
    return 0;
  }
  if (!insideGraph(start.x, start.y) || !insideGraph(end.x, end.y)) {
    LogManager::getInstance().writeLog(
        "PathFind::cycleOnce(): the world shrank past the start or the end.  Cannot find path.");
    return 0;
  }
  const Cell current = takeBestOpenCell();
  close(current);
  expansions++;
  last_expanded = current;
  if (current == end) {
    found = true;
  }
  if (target_box && touchesTarget(current)) {
    found = true;
    end = current;
  }
  if (found) {
    return 2;
  }
  expandNeighbours(current);
  return anyOpen() ? 1 : 0;
}

bool PathFind::Waiting::operator<(const Waiting& other) const {
  return total != other.total ? total > other.total : discovery < other.discovery;
}

Cell PathFind::takeBestOpenCell() {
  while (!open_heap.empty()) {
    const Waiting best = open_heap.top();
    open_heap.pop();
    if (state[indexOf(best.cell)] == State::OPEN && nodeAt(best.cell).total == best.total) {
      open_count--;
      return best.cell;
    }
  }
  return start;
}

void PathFind::close(Cell c) { state[indexOf(c)] = State::CLOSED; }

bool PathFind::isClosed(Cell c) const { return state[indexOf(c)] == State::CLOSED; }

bool PathFind::isOpen(Cell c) const { return state[indexOf(c)] == State::OPEN; }

void PathFind::discovered(Cell c) {
  state[indexOf(c)] = State::OPEN;
  discovery[indexOf(c)] = discoveries++;
  open_count++;
  open_heap.push(Waiting{nodeAt(c).total, discovery[indexOf(c)], c});
}

void PathFind::reached(Cell c) {
  open_heap.push(Waiting{nodeAt(c).total, discovery[indexOf(c)], c});
}

bool PathFind::anyOpen() const { return open_count > 0; }

bool PathFind::touchesTarget(Cell c) const {
  return boxIntersectsBox(getWorldBox(object, at(c)), *target_box);
}

// The row above first, each row from the left.
void PathFind::expandNeighbours(Cell current) {
  const float current_cost = nodeAt(current).cost;
  for (int dy = -1; dy <= 1; dy++) {
    for (int dx = -1; dx <= 1; dx++) {
      const Cell next{current.x + dx, current.y + dy};
      if ((dx == 0 && dy == 0) || !insideGraph(next.x, next.y) || isClosed(next) ||
          blockedAt(next.x, next.y) || cutsACorner(current, dx, dy)) {
        continue;
      }
      const float cost = straightLine(dx, dy) + current_cost;
      Node& node = nodeAt(next);
      const bool open = isOpen(next);
      // A way of equal cost replaces the old one.
      if (open && cost > node.cost) {
        continue;
      }
      node.parent = current;
      node.cost = cost;
      node.total = cost + straightLine(next.x - end.x, next.y - end.y);
      if (open) {
        reached(next);
      } else {
        discovered(next);
      }
    }
  }
}

// A diagonal step may pass one blocked corner, but not squeeze between two.
bool PathFind::cutsACorner(Cell current, int dx, int dy) {
  return dx != 0 && dy != 0 && blockedAt(current.x + dx, current.y) &&
         blockedAt(current.x, current.y + dy);
}

bool PathFind::blockedAt(int x, int y) {
  if (!swept) {
    sweepHardObjects();
  }
  Blocked& known = blocked[indexOf(Cell{x, y})];
  if (known == Blocked::ASK) {
    known = isBlocked(object, x, y, end) ? Blocked::YES : Blocked::NO;
  }
  return known == Blocked::YES;
}

void PathFind::sweepHardObjects() {
  swept = true;
  const ObjectList solid = WorldManager::getInstance().getSceneGraph().solidObjects();
  for (int i = 0; i < solid.getCount(); i++) {
    if (solid[i] != object && solid[i]->getSolidness() == HARD) {
      markCellsMet(solid[i]);
    }
  }
}

// The cells at which the searching object's box meets `hard`'s, by the same
// test the world's collisions use, looked for in the span the boxes allow.
void PathFind::markCellsMet(const Object* hard) {
  const Box theirs = getWorldBox(hard);
  const Vector corner = theirs.getCorner();
  const Box mine = object->getBox();
  const Span columns = cellsMeeting(corner.getX(), corner.getX() + theirs.getHorizontal(),
                                    mine.getCorner().getX(), mine.getHorizontal(), graph_width);
  const Span rows = cellsMeeting(corner.getY(), corner.getY() + theirs.getVertical(),
                                 mine.getCorner().getY(), mine.getVertical(), graph_height);
  const bool holds_end = boxContainsPosition(theirs, at(end));
  for (int y = rows.first; y <= rows.last; y++) {
    for (int x = columns.first; x <= columns.last; x++) {
      const Box there = getWorldBox(object, Vector(static_cast<float>(x), static_cast<float>(y)));
      if (!boxIntersectsBox(there, theirs)) {
        continue;
      }
      Blocked& cell = blocked[indexOf(Cell{x, y})];
      if (holds_end) {
        cell = Blocked::ASK;
      } else if (cell == Blocked::NO) {
        cell = Blocked::YES;
      }
    }
  }
}

bool PathFind::isBlocked(const Object* o, int x, int y, Cell end_cell) const {
  const ObjectList in_the_way = WorldManager::getInstance().getCollisions(
      o, Vector(static_cast<float>(x), static_cast<float>(y)));
  for (int i = 0; i < in_the_way.getCount(); i++) {
    if (in_the_way[i]->getSolidness() == HARD) {
      return !boxContainsPosition(getWorldBox(in_the_way[i]), at(end_cell));
    }
  }
  return false;
}

Path PathFind::getPath() const {
  Path path;
  if (!found) {
    return path;
  }
  std::vector<Vector> nodes;
  for (Cell c = end; !(c == start); c = nodeAt(c).parent) {
    nodes.push_back(at(c));
  }
  nodes.push_back(at(start));
  std::reverse(nodes.begin(), nodes.end());
  path.setNodes(std::move(nodes));
  return path;
}

Object* PathFind::getObject() const { return object; }

int PathFind::getExpansions() const { return expansions; }

Cell PathFind::getLastExpanded() const { return last_expanded; }

Cell PathFind::getStart() const { return start; }

Cell PathFind::getEnd() const { return end; }

float PathFind::totalOf(Cell c) const { return nodeAt(c).total; }

}  // namespace mv

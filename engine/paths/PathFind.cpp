#include "PathFind.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "LogManager.h"
#include "Object.h"
#include "ObjectList.h"
#include "WorldManager.h"
#include "geometry.h"

namespace mv {

namespace {

// The straight-line distance, in double precision, narrowed as the nodes keep it.
float straightLine(int dx, int dy) {
  return static_cast<float>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
}

}  // namespace

Cell nearestCell(Vector position) {
  return Cell{static_cast<int>(std::lround(position.getX())),
              static_cast<int>(std::lround(position.getY()))};
}

PathFind::PathFind(Object* object, Vector goal, Object* target)
    : object(object),
      target(target),
      start(nearestCell(object->getPosition())),
      end(nearestCell(goal)),
      found(false) {
  const Box boundary = WorldManager::getInstance().getBoundary();
  graph_width = std::max(0, static_cast<int>(boundary.getHorizontal()));
  graph_height = std::max(0, static_cast<int>(boundary.getVertical()));
  node_graph.resize(static_cast<std::size_t>(graph_width) * graph_height);
}

PathFind::Node& PathFind::nodeAt(Cell c) {
  return node_graph[static_cast<std::size_t>(c.y) * graph_width + c.x];
}

const PathFind::Node& PathFind::nodeAt(Cell c) const {
  return node_graph[static_cast<std::size_t>(c.y) * graph_width + c.x];
}

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
  closed_list.push_back(current);
  if (current == end) {
    found = true;
  }
  if (target != nullptr && touchesTarget(current)) {
    found = true;
    end = current;
  }
  if (found) {
    return 2;
  }
  expandNeighbours(current);
  return open_list.empty() ? 0 : 1;
}

// The lowest total wins; among equal totals the cell found last. With nothing
// open yet, the search begins at the start.
Cell PathFind::takeBestOpenCell() {
  Cell current = start;
  int chosen = -1;
  float best = std::numeric_limits<float>::infinity();
  for (int i = static_cast<int>(open_list.size()) - 1; i >= 0; i--) {
    const float total = nodeAt(open_list[i]).total;
    if (total < best) {
      best = total;
      current = open_list[i];
      chosen = i;
    }
  }
  if (chosen >= 0) {
    open_list.erase(open_list.begin() + chosen);
  }
  return current;
}

bool PathFind::touchesTarget(Cell c) const {
  const Box here = getWorldBox(object, Vector(static_cast<float>(c.x), static_cast<float>(c.y)));
  const Box there =
      getWorldBox(target, Vector(static_cast<float>(end.x), static_cast<float>(end.y)));
  return boxIntersectsBox(here, there);
}

// The row above first, each row from the left.
void PathFind::expandNeighbours(Cell current) {
  const float current_cost = nodeAt(current).cost;
  for (int dy = -1; dy <= 1; dy++) {
    for (int dx = -1; dx <= 1; dx++) {
      const Cell next{current.x + dx, current.y + dy};
      if ((dx == 0 && dy == 0) || !insideGraph(next.x, next.y) || inClosedList(next) ||
          isBlocked(object, next.x, next.y, end) || cutsACorner(current, dx, dy)) {
        continue;
      }
      const float cost = straightLine(dx, dy) + current_cost;
      Node& node = nodeAt(next);
      if (openListIndex(next) >= 0) {
        // A way of equal cost replaces the old one.
        if (cost > node.cost) {
          continue;
        }
      } else {
        open_list.push_back(next);
      }
      node.parent = current;
      node.cost = cost;
      node.total = cost + straightLine(next.x - end.x, next.y - end.y);
    }
  }
}

// A diagonal step may pass one blocked corner, but not squeeze between two.
bool PathFind::cutsACorner(Cell current, int dx, int dy) const {
  return dx != 0 && dy != 0 && isBlocked(object, current.x + dx, current.y, end) &&
         isBlocked(object, current.x, current.y + dy, end);
}

bool PathFind::inClosedList(Cell c) const {
  return std::find(closed_list.begin(), closed_list.end(), c) != closed_list.end();
}

int PathFind::openListIndex(Cell c) const {
  const auto at = std::find(open_list.begin(), open_list.end(), c);
  return at == open_list.end() ? -1 : static_cast<int>(at - open_list.begin());
}

bool PathFind::isBlocked(const Object* o, int x, int y, Cell end_cell) const {
  const ObjectList in_the_way = WorldManager::getInstance().getCollisions(
      o, Vector(static_cast<float>(x), static_cast<float>(y)));
  for (int i = 0; i < in_the_way.getCount(); i++) {
    if (in_the_way[i]->getSolidness() == HARD) {
      return !boxContainsPosition(
          getWorldBox(in_the_way[i]),
          Vector(static_cast<float>(end_cell.x), static_cast<float>(end_cell.y)));
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
    nodes.emplace_back(static_cast<float>(c.x), static_cast<float>(c.y));
  }
  nodes.emplace_back(static_cast<float>(start.x), static_cast<float>(start.y));
  std::reverse(nodes.begin(), nodes.end());
  path.setNodes(std::move(nodes));
  return path;
}

Object* PathFind::getObject() const { return object; }

int PathFind::getExpansions() const { return static_cast<int>(closed_list.size()); }

}  // namespace mv

#include "ReferencePathFind.h"

#include <algorithm>
#include <limits>

namespace mv {

ReferencePathFind::ReferencePathFind(Object* object, Vector goal, Object* target)
    : PathFind(object, goal, target) {}

// Scanned from the last found to the first, so that among equal totals the
// cell found last wins.
Cell ReferencePathFind::takeBestOpenCell() {
  Cell current = getStart();
  int chosen = -1;
  float best = std::numeric_limits<float>::infinity();
  for (int i = static_cast<int>(open_list.size()) - 1; i >= 0; i--) {
    const float total = totalOf(open_list[i]);
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

void ReferencePathFind::close(Cell c) { closed_list.push_back(c); }

bool ReferencePathFind::isClosed(Cell c) const {
  return std::find(closed_list.begin(), closed_list.end(), c) != closed_list.end();
}

bool ReferencePathFind::isOpen(Cell c) const {
  return std::find(open_list.begin(), open_list.end(), c) != open_list.end();
}

void ReferencePathFind::discovered(Cell c) { open_list.push_back(c); }

void ReferencePathFind::reached(Cell) {}

bool ReferencePathFind::anyOpen() const { return !open_list.empty(); }

bool ReferencePathFind::blockedAt(int x, int y) { return isBlocked(getObject(), x, y, getEnd()); }

}  // namespace mv

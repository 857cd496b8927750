// Runs the path searches in progress in whatever time a frame has left after
// its work, one expansion of each in turn, and tells each object when its
// search has ended. The objects own their searches.
#pragma once

#include <vector>

#include "Manager.h"

namespace mv {

class Clock;
class PathFind;

class PathManager : public Manager {
 public:
  static PathManager& getInstance();

  // Takes a tenth of the frame time as the least time searches get each frame.
  int startUp() override;
  void shutDown() override;

  // Expands the searches in turn for `budget_ms` milliseconds, or for the
  // least time if that is more. A search that ends is told to its object
  // with an "mv-path" event; the object then removes it.
  void cycle(int budget_ms);

  // Adds a search to those in progress.
  void insertPathFind(PathFind* p);
  // -1 if `p` is null or not in progress; the search is not deleted.
  int removePathFind(PathFind* p);

  int getCycleTime() const;

 private:
  PathManager();
  // One expansion of each search in turn, from where the last pass stopped.
  void pass(int budget, const Clock& clock);

  std::vector<PathFind*> path_finds;
  int cycle_time;
};

}  // namespace mv

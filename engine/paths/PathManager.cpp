#include "PathManager.h"

#include <algorithm>

#include "Clock.h"
#include "EventPath.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Object.h"
#include "PathFind.h"

namespace mv {

namespace {

constexpr int NO_PATH = 0;
constexpr int FOUND = 2;

int elapsedMilliseconds(const Clock& clock) { return clock.split() / 1000; }

}  // namespace

PathManager::PathManager() : cycle_time(0) { setType("PathManager"); }

PathManager& PathManager::getInstance() {
  static PathManager instance;
  return instance;
}

int PathManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  cycle_time = GameManager::getInstance().getFrameTime() / 10;
  Manager::startUp();
  LogManager::getInstance().writeLog(5, "PathManager::startUp(): successfully started.");
  return 0;
}

void PathManager::shutDown() {
  Manager::shutDown();
  LogManager::getInstance().writeLog(5, "PathManager::shutDown(): successfully stopped.");
}

void PathManager::cycle(int budget_ms) {
  const int budget = std::max(cycle_time, budget_ms);
  const Clock clock;
  while (!path_finds.empty() && elapsedMilliseconds(clock) < budget) {
    pass(budget, clock);
  }
  if (elapsedMilliseconds(clock) > budget) {
    LogManager::getInstance().writeLog(5, "PathManager::cycle(): cycle time %d exceeded.", budget);
  }
}

// A pass cut short by the clock starts again at the first search next time.
// A handler that removes its search moves the later ones up, so the one after
// it waits for the next pass.
void PathManager::pass(int budget, const Clock& clock) {
  int index = 0;
  while (index < static_cast<int>(path_finds.size())) {
    PathFind* search = path_finds[index];
    const int result = search->cycleOnce();
    if (result == NO_PATH || result == FOUND) {
      EventPath ended;
      ended.setResult(result);
      ended.setPath(search->getPath());
      search->getObject()->eventHandler(&ended);
    }
    index++;
    if (elapsedMilliseconds(clock) > budget) {
      return;
    }
  }
}

void PathManager::insertPathFind(PathFind* p) { path_finds.push_back(p); }

int PathManager::removePathFind(PathFind* p) {
  if (p == nullptr || std::find(path_finds.begin(), path_finds.end(), p) == path_finds.end()) {
    return -1;
  }
  path_finds.erase(std::remove(path_finds.begin(), path_finds.end(), p), path_finds.end());
  return 0;
}

int PathManager::getCycleTime() const { return cycle_time; }

}  // namespace mv

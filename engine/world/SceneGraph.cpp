#include "SceneGraph.h"

#include "GameManager.h"
#include "LogManager.h"
#include "Object.h"

namespace mv {

namespace {

constexpr int MIN_ALTITUDE = 0;
constexpr int MAX_ALTITUDE = 4;

bool validAltitude(int altitude) { return altitude >= MIN_ALTITUDE && altitude <= MAX_ALTITUDE; }

LogManager& log() { return LogManager::getInstance(); }

// A list operation that failed, told in the log. While the game is over the
// world is being emptied wholesale: such failures pass in silence and count as done.
template <typename... Args>
bool failedUnlessOver(int result, const char* format, Args... args) {
  if (result >= 0 || GameManager::getInstance().getGameOver()) {
    return false;
  }
  log().writeLog(format, args...);
  return true;
}

}  // namespace

SceneGraph::SceneGraph() = default;

SceneGraph::~SceneGraph() { shutDown(); }

int SceneGraph::startUp() {
  type_map.clear();
  log().writeLog(1, "Scenegraph configuration: GRID");
  return grid.startUp();
}

void SceneGraph::shutDown() {
  type_map.clear();
  grid.shutDown();
}

int SceneGraph::insertIntoType(Object* o, const std::string& type) {
  return type_map[type].insert(o);
}

int SceneGraph::removeFromType(Object* o, const std::string& type) {
  const auto found = type_map.find(type);
  if (found == type_map.end()) {
    return -1;
  }
  const int removed = found->second.remove(o);
  // Records can bring any number of types: each list goes with its last object.
  if (found->second.isEmpty()) {
    type_map.erase(found);
  }
  return removed;
}

int SceneGraph::insertObject(Object* o) {
  if (!o->isActive()) {
    return inactive_objects.insert(o);
  }
  if (objects.insert(o) != 0) {
    log().writeLog("SceneGraph::insertObject(): Error! unable to insert active Object (id %d)",
                   o->getId());
    return -1;
  }
  if (insertIntoType(o, o->getType()) != 0) {
    log().writeLog(
        "SceneGraph::insertObject(): Error! unable to insert Object (id %d) into type map",
        o->getId());
    return -1;
  }
  if (o->isSolid()) {
    if (solid_objects.insert(o) != 0) {
      log().writeLog("SceneGraph::insertObject(): Error! unable to insert solid Object (id %d)",
                     o->getId());
      return -1;
    }
    if (grid.insertObject(o) == -1) {
      log().writeLog("SceneGraph::insertObject(): Error! unable to add to Grid (id %d)",
                     o->getId());
      return -1;
    }
  }
  if (!o->isVisible()) {
    return 0;
  }
  if (!validAltitude(o->getAltitude())) {
    log().writeLog("SceneGraph::insertObject(): Warning! Altitude %d not in range [%d,%d]",
                   o->getAltitude(), MIN_ALTITUDE, MAX_ALTITUDE);
    return -1;
  }
  if (visible_objects[o->getAltitude()].insert(o) != 0) {
    log().writeLog("SceneGraph::insertObject(): Error! unable to insert visible object (id %d)",
                   o->getId());
    return -1;
  }
  return 0;
}

int SceneGraph::removeObject(Object* o) {
  int sum = 0;
  if (!o->isActive()) {
    sum = inactive_objects.remove(o);
  } else {
    sum += objects.remove(o);
    sum += removeFromType(o, o->getType());
    if (o->isVisible()) {
      sum += validAltitude(o->getAltitude()) ? visible_objects[o->getAltitude()].remove(o) : -1;
    }
    if (o->isSolid()) {
      sum += solid_objects.remove(o);
      sum += grid.removeObject(o);
    }
  }
  if (sum >= 0) {
    return 0;
  }
  log().writeLog("SceneGraph::removeObject(): Error removing Object (id %d)! Pointer is %p.",
                 o->getId(), static_cast<void*>(o));
  return -1;
}

ObjectList SceneGraph::activeObjects() const { return objects; }

ObjectList SceneGraph::inactiveObjects() const { return inactive_objects; }

ObjectList SceneGraph::solidObjects() const { return solid_objects; }

ObjectList SceneGraph::visibleObjects(int altitude) const {
  if (!validAltitude(altitude)) {
    log().writeLog("SceneGraph::visibleObjects(): Warning! altitude %d not in [%d,%d].", altitude,
                   MIN_ALTITUDE, MAX_ALTITUDE);
    return ObjectList();
  }
  return visible_objects[altitude];
}

ObjectList SceneGraph::objectsOfType(std::string type) const {
  const auto found = type_map.find(type);
  return found != type_map.end() ? found->second : ObjectList();
}

ObjectList SceneGraph::getCollisions(const Object* o, Vector where) const {
  return grid.getCollisions(o, where);
}

const Grid& SceneGraph::getGrid() const { return grid; }

int SceneGraph::getTypeCount() const { return static_cast<int>(type_map.size()); }

int SceneGraph::updateActive(Object* o, bool active) {
  if (o->isActive() == active) {
    return 0;
  }
  return active ? activate(o) : deactivate(o);
}

int SceneGraph::deactivate(Object* o) {
  const std::string type_name = o->getType();
  const char* type = type_name.c_str();
  int r = 0;
  if (failedUnlessOver(objects.remove(o),
                       "SceneGraph::updateActive(): remove object (%s) failed for objects!",
                       type)) {
    r = -1;
  }
  r += removeFromType(o, type_name);
  if (o->isVisible() &&
      failedUnlessOver(
          validAltitude(o->getAltitude()) ? visible_objects[o->getAltitude()].remove(o) : -1,
          "SceneGraph::updateActive(): remove visible object (%s) failed for "
          "visible_objects!",
          type)) {
    r = -1;
  }
  if (o->isSolid()) {
    if (failedUnlessOver(solid_objects.remove(o),
                         "SceneGraph::updateActive(): remove object (%s) failed for solid_objects!",
                         type)) {
      r = -1;
    }
    if (grid.removeObject(o) == -1) {
      return -1;
    }
  }
  if (failedUnlessOver(
          inactive_objects.insert(o),
          "SceneGraph::updateActive(): insert object (%s) failed for inactive_objects!", type)) {
    r = -1;
  }
  return r;
}

int SceneGraph::activate(Object* o) {
  const std::string type_name = o->getType();
  const char* type = type_name.c_str();
  int r = 0;
  if (failedUnlessOver(objects.insert(o),
                       "SceneGraph::updateActive(): insert Object (%s) failed for objects!",
                       type)) {
    r = -1;
  }
  if (insertIntoType(o, type_name) != 0) {
    log().writeLog("SceneGraph::updateActive(): Error! insert Object (%s) failed for type map!",
                   type);
    return -1;
  }
  if (o->isVisible() &&
      failedUnlessOver(
          validAltitude(o->getAltitude()) ? visible_objects[o->getAltitude()].insert(o) : -1,
          "SceneGraph::updateActive(): insert Object (%s) failed for "
          "visible_objects!",
          type)) {
    r = -1;
  }
  if (o->isSolid()) {
    if (failedUnlessOver(solid_objects.insert(o),
                         "SceneGraph::updateActive(): insert object (%s) failed for solid_objects!",
                         type)) {
      r = -1;
    }
    if (grid.insertObject(o) == -1) {
      return -1;
    }
  }
  if (failedUnlessOver(
          inactive_objects.remove(o),
          "SceneGraph::updateActive(): remove object (%s) failed for inactive_objects!", type)) {
    r = -1;
  }
  return r;
}

int SceneGraph::updateAltitude(Object* o, int altitude) {
  if (!o->isActive()) {
    return 0;
  }
  if (!validAltitude(altitude)) {
    log().writeLog("SceneGraph::updateAltitude(): New altitude %d not in [%d,%d]!  No update.",
                   altitude, MIN_ALTITUDE, MAX_ALTITUDE);
    return -1;
  }
  const int old_altitude = o->getAltitude();
  if (!validAltitude(old_altitude)) {
    log().writeLog(
        "SceneGraph::updateAltitude(): Old altitude %d not in [%d,%d]! This is unxepected. No "
        "update.",
        old_altitude, MIN_ALTITUDE, MAX_ALTITUDE);
    return -1;
  }
  if (!o->isVisible()) {
    return 0;
  }
  if (failedUnlessOver(visible_objects[old_altitude].remove(o),
                       "SceneGraph::updateAltitude(): remove from old altitude (%d) failed!",
                       old_altitude)) {
    log().writeLog("\tObject: type %s, id %d, p %p", o->getType().c_str(), o->getId(),
                   static_cast<void*>(o));
    return -1;
  }
  if (visible_objects[altitude].insert(o) != 0) {
    log().writeLog("SceneGraph::updateAltitude()): insert visible object at altitude %d failed!",
                   altitude);
    return -1;
  }
  return 0;
}

int SceneGraph::updatePosition(Object* o, Vector where) {
  if (!o->isSolid() || !o->isActive()) {
    return 0;
  }
  if (grid.updatePosition(o, where) == -1) {
    log().writeLog("SceneGraph::updatePosition(): Error! Calling grid updatePosition (Object %d).",
                   o->getId());
    return -1;
  }
  return 0;
}

int SceneGraph::updateSolidness(Object* o, Solidness solidness) {
  if (!o->isActive()) {
    return 0;
  }
  if (o->isSolid() && solidness == SPECTRAL) {
    failedUnlessOver(solid_objects.remove(o),
                     "SceneGraph::updateSolidness(): unable to remove solid object (%s)",
                     o->getType().c_str());
    if (grid.removeObject(o) == -1) {
      return -1;
    }
  }
  if (o->isSolid() || solidness == SPECTRAL) {
    return 0;
  }
  if (failedUnlessOver(solid_objects.insert(o), "%s",
                       "SceneGraph::updateSolidness(): Error! unable to insert solid object")) {
    return -1;
  }
  log().writeLog(20, "SceneGraph::updateSolidness(): Adding to grid.");
  if (grid.insertObject(o) == -1) {
    log().writeLog(
        "SceneGraph::updateSolidness(): Error! unable to insert solid object (%d) into grid",
        o->getId());
    return -1;
  }
  return 0;
}

int SceneGraph::updateType(Object* o, std::string type) {
  if (failedUnlessOver(removeFromType(o, o->getType()),
                       "SceneGraph::updateType(): Error! Unable to remove Object (%d) type %s",
                       o->getId(), o->getType().c_str())) {
    return -1;
  }
  if (failedUnlessOver(insertIntoType(o, type),
                       "SceneGraph::updateType(): Error! Unable to insert Object (%d) type %s",
                       o->getId(), type.c_str())) {
    return -1;
  }
  return 0;
}

int SceneGraph::updateVisible(Object* o, bool visible) {
  if (!o->isActive() || o->isVisible() == visible) {
    return 0;
  }
  ObjectList& layer = visible_objects[o->getAltitude()];
  if (o->isVisible()) {
    if (failedUnlessOver(layer.remove(o),
                         "SceneGraph::updateVisible(): unable to remove visible object (%s)",
                         o->getType().c_str())) {
      return -1;
    }
  } else if (failedUnlessOver(layer.insert(o),
                              "SceneGraph::updateVisible(): unable to add visible object (%s)",
                              o->getType().c_str())) {
    return -1;
  }
  return 0;
}

}  // namespace mv

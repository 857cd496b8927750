#include "WorldManager.h"

#include <cmath>

#include "EventCollision.h"
#include "EventOut.h"
#include "LogManager.h"
#include "Object.h"
#include "ObjectListIterator.h"
// View objects stand on the screen rather than in the world, so drawing never culls them.
#include "ViewObject.h"
#include "geometry.h"

namespace mv {

namespace {

LogManager& log() { return LogManager::getInstance(); }

bool containsHard(const ObjectList& objects) {
  for (int i = 0; i < objects.getCount(); i++) {
    if (objects[i]->getSolidness() == HARD) {
      return true;
    }
  }
  return false;
}

}  // namespace

WorldManager::WorldManager() : view_following(nullptr) { setType("WorldManager"); }

WorldManager& WorldManager::getInstance() {
  static WorldManager instance;
  return instance;
}

bool WorldManager::isValid(std::string event_type) const {
  if (event_type == "mv-keyboard" || event_type == "mv-mouse" || event_type == "mv-step") {
    log().writeLog("WorldManager::isValid(): WorldManager does not handle %s", event_type.c_str());
    return false;
  }
  if (event_type == "mv-out" || event_type == "mv-collision") {
    log().writeLog("WorldManager::isValid(): Event %s handled automatically.", event_type.c_str());
    return false;
  }
  return true;
}

int WorldManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  deletions.clear();
  boundary = Box();
  view = Box();
  view_slack = Vector();
  view_following = nullptr;
  if (scene_graph.startUp() == -1) {
    log().writeLog("WorldManager::startUp(): Error! Unable to startup Scenegraph");
    return -1;
  }
  Manager::startUp();
  log().writeLog(5, "WorldManager::startUp(): successfully started.");
  return 0;
}

void WorldManager::shutDown() {
  Manager::shutDown();
  const ObjectList everything = scene_graph.activeObjects() + scene_graph.inactiveObjects();
  ObjectListIterator it(&everything);
  for (it.first(); !it.isDone(); it.next()) {
    delete it.currentObject();
  }
  // Whatever was marked has just been deleted with the rest.
  deletions.clear();
  scene_graph.shutDown();
  log().writeLog(5, "WorldManager::shutDown(): Successfully stopped.");
}

void WorldManager::update() {
  const ObjectList active = scene_graph.activeObjects();
  ObjectListIterator it(&active);
  for (it.first(); !it.isDone(); it.next()) {
    Object* o = it.currentObject();
    const Vector where = o->predictPosition();
    if (where != o->getPosition()) {
      moveObject(o, where);
    }
    o->followPath();
    o->applyAcceleration();
  }
  // By index against the live count: destructors may mark further objects,
  // and those go in this same walk.
  for (int i = 0; i < deletions.getCount(); i++) {
    delete deletions[i];
  }
  deletions.clear();
}

void WorldManager::draw() {
  for (int altitude = 0; altitude <= 4; altitude++) {
    const ObjectList layer = scene_graph.visibleObjects(altitude);
    ObjectListIterator it(&layer);
    for (it.first(); !it.isDone(); it.next()) {
      Object* o = it.currentObject();
      // Heads-up displays stand on the screen, not in the world: never culled.
      if (boxIntersectsBox(getWorldBox(o), view) || dynamic_cast<ViewObject*>(o) != nullptr) {
        o->draw();
      }
    }
  }
}

int WorldManager::insertObject(Object* o) {
  if (!isStarted()) {
    log().writeLog(2, "WorldManager::insertObject(): Warning! Not adding Object %d", o->getId());
    log().writeLog(2, "                              because WorldManager not started.");
    return -1;
  }
  return scene_graph.insertObject(o);
}

int WorldManager::removeObject(Object* o) {
  if (o == view_following) {
    view_following = nullptr;
  }
  return scene_graph.removeObject(o);
}

int WorldManager::markForDelete(Object* o) {
  ObjectListIterator it(&deletions);
  for (it.first(); !it.isDone(); it.next()) {
    if (it.currentObject() == o) {
      return 0;
    }
  }
  if (deletions.insert(o) != 0) {
    log().writeLog(
        "WorldManager::markForDelete(): Error! unable to add Object %p to deletions list",
        static_cast<void*>(o));
    return -1;
  }
  return 0;
}

int WorldManager::moveObject(Object* o, Vector where) {
  if (o->isSolid()) {
    ObjectList collisions = scene_graph.getCollisions(o, where);
    if (!collisions.isEmpty() && o->getSolidness() == HARD && o->getAvoidCollisions() &&
        avoidHardObstacle(o, where, collisions) == -1) {
      return -1;
    }
    if (!deliverCollisions(o, where, collisions)) {
      return -1;
    }
  }

  const Box before = getWorldBox(o);
  o->setPosition(where);
  const Box after = getWorldBox(o);
  if (boxIntersectsBox(before, boundary) && !boxIntersectsBox(after, boundary)) {
    const EventOut out;
    o->eventHandler(&out);
  }

  if (o == view_following) {
    followWithView(o);
  }
  return 0;
}

// A HARD object that avoids collisions slides along the first HARD obstacle:
// the component of its motion into the obstacle is dropped. -1 if the slid-to
// place is blocked too; otherwise `where` and `collisions` describe that place.
int WorldManager::avoidHardObstacle(Object* o, Vector& where, ObjectList& collisions) {
  Object* hit = nullptr;
  for (int i = 0; i < collisions.getCount() && hit == nullptr; i++) {
    if (collisions[i]->getSolidness() == HARD) {
      hit = collisions[i];
    }
  }
  if (hit == nullptr) {
    return 0;
  }
  const Vector normal = getNormal(o, hit);
  const Vector direction = o->getDirection();
  const float normal_x = std::fabs(normal.getX());
  const float normal_y = std::fabs(normal.getY());
  Vector slide(direction.getX() * normal_y, direction.getY() * normal_x);
  if (normal_x == 1.0f && normal_y == 1.0f) {
    slide.setX(-slide.getX());
  }
  slide.normalize();
  slide.scale(o->getSpeed());
  const Vector slid_to = o->getPosition() + slide;

  ObjectList slid_collisions = scene_graph.getCollisions(o, slid_to);
  if (containsHard(slid_collisions)) {
    log().writeLog(
        5, "WorldManager::moveObject(): Double collision. Object (avoid obstacles) cannot move.");
    return -1;
  }
  collisions = slid_collisions;
  where = slid_to;
  return 0;
}

// Tells the mover and each object in its way of their meeting, in grid order.
// Answers whether the mover may go on: HARD stops HARD, and no_soft stops at SOFT.
bool WorldManager::deliverCollisions(Object* o, Vector where, const ObjectList& collisions) {
  bool do_move = true;
  ObjectListIterator it(&collisions);
  for (it.first(); !it.isDone(); it.next()) {
    Object* other = it.currentObject();
    const EventCollision collision(o, other, where);
    o->eventHandler(&collision);
    other->eventHandler(&collision);
    // Handlers may change solidness: the rules read it afterwards.
    if (o->getSolidness() == HARD && other->getSolidness() == HARD) {
      do_move = false;
    }
    if (o->getNoSoft() && other->getSolidness() == SOFT) {
      do_move = false;
    }
  }
  return do_move;
}

// Moves the view just enough to bring the followed object back into the slack
// zone around the view's centre.
void WorldManager::followWithView(const Object* o) {
  float cx = view.getCorner().getX() + view.getHorizontal() * 0.5f;
  float cy = view.getCorner().getY() + view.getVertical() * 0.5f;
  const float half_width = view.getHorizontal() * view_slack.getX() * 0.5f;
  const float half_height = view.getVertical() * view_slack.getY() * 0.5f;
  const float left = cx - half_width;
  const float right = cx + half_width;
  const float top = cy - half_height;
  const float bottom = cy + half_height;
  const Vector p = o->getPosition();
  if (p.getX() < left) {
    cx -= left - p.getX();
  } else if (p.getX() > right) {
    cx += p.getX() - right;
  }
  if (p.getY() < top) {
    cy -= top - p.getY();
  } else if (p.getY() > bottom) {
    cy += p.getY() - bottom;
  }
  setViewPosition(Vector(cx, cy));
}

ObjectList WorldManager::getCollisions(const Object* o, Vector where) const {
  return scene_graph.getCollisions(o, where);
}

ObjectList WorldManager::getAllObjects(bool inactive) const {
  return inactive ? scene_graph.activeObjects() + scene_graph.inactiveObjects()
                  : scene_graph.activeObjects();
}

ObjectList WorldManager::objectsOfType(std::string type) const {
  return scene_graph.objectsOfType(type);
}

SceneGraph& WorldManager::getSceneGraph() { return scene_graph; }

Box WorldManager::getBoundary() const { return boundary; }

void WorldManager::setBoundary(Box new_boundary) {
  if (new_boundary == boundary) {
    return;
  }
  boundary = new_boundary;
  scene_graph.shutDown();
  scene_graph.startUp();
}

Box WorldManager::getView() const { return view; }

void WorldManager::setView(Box new_view) { view = new_view; }

void WorldManager::setViewPosition(Vector centre) {
  float x = centre.getX() - view.getHorizontal() * 0.5f;
  float y = centre.getY() - view.getVertical() * 0.5f;
  if (x + view.getHorizontal() > boundary.getHorizontal()) {
    x = boundary.getHorizontal() - view.getHorizontal();
  }
  if (y + view.getVertical() > boundary.getVertical()) {
    y = boundary.getVertical() - view.getVertical();
  }
  x = x < 0 ? 0 : x;
  y = y < 0 ? 0 : y;
  view.setCorner(Vector(x, y));
}

void WorldManager::setViewSlack(Vector new_view_slack) {
  const auto outside = [](float v) { return v < 0.0f || v > 1.0f; };
  if (outside(new_view_slack.getX()) || outside(new_view_slack.getY())) {
    log().writeLog("WorldManager::setViewSlack(): Warning! view slack units out of range [0-1]");
  }
  view_slack = new_view_slack;
}

Vector WorldManager::getViewSlack() const { return view_slack; }

int WorldManager::setViewFollowing(Object* o) {
  if (o == nullptr) {
    view_following = nullptr;
    return 0;
  }
  const ObjectList everything = getAllObjects(true);
  ObjectListIterator it(&everything);
  for (it.first(); !it.isDone() && it.currentObject() != o; it.next()) {
  }
  if (it.isDone()) {
    log().writeLog("WorldManager::setViewFollowing(): Error! Object %p is not in the world.",
                   static_cast<void*>(o));
    return -1;
  }
  view_following = o;
  setViewPosition(o->getPosition());
  return 0;
}

Object* WorldManager::getViewFollowing() const { return view_following; }

}  // namespace mv

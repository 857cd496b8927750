#include "Object.h"

#include <algorithm>
#include <utility>

#include "Attribute.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventNetwork.h"
#include "EventPath.h"
#include "EventStep.h"
#include "GameManager.h"
#include "InputManager.h"
#include "LogManager.h"
#include "NetworkManager.h"
#include "PathFind.h"
#include "PathManager.h"
#include "ResourceManager.h"
#include "SceneGraph.h"
#include "WorldManager.h"
#include "geometry.h"

namespace mv {

namespace {

constexpr std::size_t MAX_INTERESTS = 100;
constexpr int MIN_ALTITUDE = 0;
constexpr int MAX_ALTITUDE = 4;

LogManager& log() { return LogManager::getInstance(); }

SceneGraph& sceneGraph() { return WorldManager::getInstance().getSceneGraph(); }

// The manager that raises events of this label, and so keeps its interests.
Manager& managerFor(const std::string& event_type) {
  if (event_type == STEP_EVENT) {
    return GameManager::getInstance();
  }
  if (event_type == KEYBOARD_EVENT || event_type == MOUSE_EVENT) {
    return InputManager::getInstance();
  }
  if (isNetworkEvent(event_type)) {
    return NetworkManager::getInstance();
  }
  return WorldManager::getInstance();
}

}  // namespace

int Object::next_id = 1;

Object::Object()
    : id(next_id++),
      type("(Undefined)"),
      is_active(true),
      is_visible(true),
      // An animation without a sprite gives the default box of every object.
      box(Animation().getBox()),
      position(1.0f, 1.0f),
      speed(0.0f),
      altitude(2),
      solidness(HARD),
      no_soft(false),
      modified(ALL_OBJECT_ATTRIBUTES),
      follow_path(false),
      avoid_collisions(false),
      path_find(nullptr) {
  shape.setType(Shape::UNDEFINED);
  WorldManager::getInstance().insertObject(this);
}

Object::~Object() {
  const std::vector<std::string> interests = event_name;
  for (auto it = interests.rbegin(); it != interests.rend(); ++it) {
    unregisterInterest(*it);
  }
  endSearch();
  WorldManager::getInstance().removeObject(this);
}

void Object::endSearch() {
  if (path_find != nullptr) {
    PathManager::getInstance().removePathFind(path_find);
    delete path_find;
    path_find = nullptr;
  }
}

int Object::findPath(Vector goal) { return startSearch(goal, nullptr); }

int Object::findPath(Object* target) {
  if (target == nullptr) {
    log().writeLog("Object::findPath(): Error! No object to find a way to.");
    return -1;
  }
  return startSearch(target->getPosition(), target);
}

int Object::startSearch(Vector goal, Object* target) {
  const Box boundary = WorldManager::getInstance().getBoundary();
  for (const Vector end : {position, goal}) {
    const Cell cell = nearestCell(end);
    if (cell.x < 0 || cell.y < 0 || cell.x >= static_cast<int>(boundary.getHorizontal()) ||
        cell.y >= static_cast<int>(boundary.getVertical())) {
      log().writeLog("Object::findPath(): Error! (%d,%d) lies outside the world of %d by %d cells.",
                     cell.x, cell.y, static_cast<int>(boundary.getHorizontal()),
                     static_cast<int>(boundary.getVertical()));
      return -1;
    }
  }
  endSearch();
  path_find = new PathFind(this, goal, target);
  PathManager::getInstance().insertPathFind(path_find);
  return 0;
}

void Object::markModified(unsigned attributes) { modified |= attributes; }

void Object::returnLastId() { next_id--; }

void Object::setType(std::string new_type) {
  sceneGraph().updateType(this, new_type);
  type = std::move(new_type);
  markModified(TYPE);
}

void Object::setPosition(Vector new_position) {
  if (new_position == position) {
    return;
  }
  sceneGraph().updatePosition(this, new_position);
  position = new_position;
  markModified(POSITION);
}

int Object::eventHandler(const Event* event) {
  if (event->getType() != PATH_EVENT) {
    return 0;
  }
  const auto* path_event = dynamic_cast<const EventPath*>(event);
  if (path_event == nullptr) {
    log().writeLog("Object::eventHandler(): Error! Dynamic cast to EventPath failed.");
    return 0;
  }
  constexpr int PATH_FOUND = 2;
  if (path_event->getResult() == PATH_FOUND) {
    setPath(path_event->getPath());
    setFollowPath(true);
  }
  endSearch();
  return 1;
}

int Object::setSolidness(Solidness new_solidness) {
  if (new_solidness == solidness) {
    return 0;
  }
  if (static_cast<unsigned>(new_solidness) >= 3) {
    log().writeLog("Object::setSolidness(): Solidness %d not one of HARD, SOFT or SPECTRAL.",
                   static_cast<int>(new_solidness));
    return -1;
  }
  if (sceneGraph().updateSolidness(this, new_solidness) == -1) {
    return -1;
  }
  solidness = new_solidness;
  markModified(SOLIDNESS);
  return 0;
}

void Object::setAvoidCollisions(bool new_avoid_collisions) {
  avoid_collisions = new_avoid_collisions;
  markModified(AVOID_COLLISIONS);
}

int Object::setAltitude(int new_altitude) {
  if (new_altitude == altitude) {
    return 0;
  }
  if (!valueInRange(static_cast<float>(new_altitude), MIN_ALTITUDE, MAX_ALTITUDE)) {
    log().writeLog("Object::setAltitude(): Altitude %d not in range [%d,%d].  Ignored.",
                   new_altitude, MIN_ALTITUDE, MAX_ALTITUDE);
    return -1;
  }
  if (sceneGraph().updateAltitude(this, new_altitude) == -1) {
    return -1;
  }
  altitude = new_altitude;
  markModified(ALTITUDE);
  return 0;
}

void Object::setDirection(Vector new_direction) {
  new_direction.normalize();
  direction = new_direction;
  markModified(DIRECTION);
}

void Object::setVelocity(Vector new_velocity) {
  speed = new_velocity.getMagnitude();
  new_velocity.normalize();
  direction = new_velocity;
  markModified(SPEED | DIRECTION);
}

void Object::setAcceleration(Vector new_acceleration) {
  acceleration = new_acceleration;
  markModified(ACCELERATION);
}

bool Object::isVisible() const { return is_visible; }

int Object::setActive(bool new_active) {
  if (new_active == is_active) {
    return 0;
  }
  if (sceneGraph().updateActive(this, new_active) == -1) {
    return -1;
  }
  is_active = new_active;
  markModified(ACTIVE);
  return 0;
}

void Object::setBox(Box new_box) {
  if (new_box == box) {
    return;
  }
  sceneGraph().removeObject(this);
  box = new_box;
  sceneGraph().insertObject(this);
  markModified(BOX);
}

int Object::setSprite(std::string label) {
  Sprite* sprite = ResourceManager::getInstance().getSprite(label);
  if (sprite == nullptr) {
    LogManager::getInstance().writeLog("Object::setSprite(): Warning! Sprite '%s' not found",
                                       label.c_str());
    return -1;
  }
  animation.setSprite(sprite);
  setBox(animation.getBox());
  return 0;
}

void Object::setAnimation(Animation new_animation, bool set_box) {
  animation = std::move(new_animation);
  markModified(ANIMATION);
  if (set_box) {
    setBox(animation.getBox());
  }
}

int Object::draw() {
  const int drawn = animation.draw(position);
  if (shape.getType() != Shape::UNDEFINED) {
    shape.draw(position);
  }
  return drawn;
}

void Object::setModified(unsigned mask) { modified = mask; }

unsigned Object::getModified() const { return modified; }

void Object::setShape(Shape new_shape) {
  shape = new_shape;
  markModified(SHAPE);
}

void Object::setFollowPath(bool new_follow_path) {
  follow_path = new_follow_path;
  markModified(FOLLOW_PATH);
  if (!path.isDone()) {
    setDirection(path.getCurrentNode() - position);
  }
}

int Object::getId() const { return id; }
std::string Object::getType() const { return type; }
Box Object::getBox() const { return box; }
Vector Object::getPosition() const { return position; }
Vector Object::getDirection() const { return direction; }
float Object::getSpeed() const { return speed; }
Vector Object::getAcceleration() const { return acceleration; }
int Object::getAltitude() const { return altitude; }
Solidness Object::getSolidness() const { return solidness; }
Animation Object::getAnimation() const { return animation; }
bool Object::getNoSoft() const { return no_soft; }
bool Object::getAvoidCollisions() const { return avoid_collisions; }
bool Object::getFollowPath() const { return follow_path; }
Path Object::getPath() const { return path; }
Shape Object::getShape() const { return shape; }
bool Object::isActive() const { return is_active; }
bool Object::isSolid() const { return solidness == HARD || solidness == SOFT; }
bool Object::isModified() const { return modified != 0; }
int Object::getEventCount() const { return static_cast<int>(event_name.size()); }

Vector Object::getVelocity() const {
  Vector velocity = direction;
  velocity.scale(speed);
  return velocity;
}

Vector Object::predictPosition() const { return position + getVelocity(); }

void Object::applyAcceleration() {
  if (!acceleration.isZero()) {
    setVelocity(getVelocity() + acceleration);
  }
}

void Object::followPath() {
  if (!follow_path) {
    return;
  }
  // Nodes within three quarters of a step are stepped onto at once.
  const double reach = static_cast<double>(speed * 3.0f) * 0.25;
  while (!path.isDone()) {
    const Vector node = path.getCurrentNode();
    if (static_cast<double>(distance(position, node)) > reach) {
      setDirection(node - position);
      return;
    }
    setPosition(node);
    path.popNode();
    markModified(PATH);
  }
  setDirection(Vector());
  setFollowPath(false);
}

void Object::setId(int new_id) {
  if (new_id == id) {
    return;
  }
  if (new_id >= next_id) {
    next_id = new_id + 1;
  }
  id = new_id;
  markModified(ID);
}

void Object::setSpeed(float new_speed) {
  speed = new_speed;
  markModified(SPEED);
}

void Object::setPath(Path new_path) {
  path = std::move(new_path);
  markModified(PATH);
}

void Object::setNoSoft(bool new_no_soft) {
  no_soft = new_no_soft;
  markModified(NO_SOFT);
}

void Object::setVisible(bool new_visible) {
  if (new_visible == is_visible) {
    return;
  }
  if (sceneGraph().updateVisible(this, new_visible) == -1) {
    return;
  }
  is_visible = new_visible;
  markModified(VISIBLE);
}

int Object::registerInterest(std::string event_type) {
  if (event_name.size() == MAX_INTERESTS) {
    log().writeLog(
        "Object::registerInterest(): maximum (%d) reached, cannot register for event '%s'",
        static_cast<int>(MAX_INTERESTS), event_type.c_str());
    return -1;
  }
  if (managerFor(event_type).registerInterest(this, event_type) == -1) {
    return -1;
  }
  event_name.push_back(std::move(event_type));
  markModified(EVENTS);
  return 0;
}

int Object::unregisterInterest(std::string event_type) {
  const auto found = std::find(event_name.begin(), event_name.end(), event_type);
  if (found == event_name.end()) {
    log().writeLog("Object::unregisterInterest(): event '%s' not previously registered",
                   event_type.c_str());
    return -1;
  }
  if (managerFor(event_type).unregisterInterest(this, event_type) == -1) {
    return -1;
  }
  event_name.erase(found);
  markModified(EVENTS);
  return 0;
}

}  // namespace mv

#include "Object.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <sstream>
#include <utility>

#include "Attribute.h"
#include "ByteReader.h"
#include "ByteWriter.h"
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
#include "utility.h"

namespace mv {

namespace {

constexpr std::size_t MAX_INTERESTS = 100;
constexpr int MIN_ALTITUDE = 0;
constexpr int MAX_ALTITUDE = 4;

LogManager& log() { return LogManager::getInstance(); }

// A record holds its attributes in this order, whatever their bits' values.
constexpr unsigned RECORD_ORDER[] = {
    ID,    ACTIVE,       VISIBLE,  EVENTS,      BOX,     POSITION,
    TYPE,  ANIMATION,    ALTITUDE, SOLIDNESS,   NO_SOFT, DIRECTION,
    SPEED, ACCELERATION, SHAPE,    FOLLOW_PATH, PATH,    AVOID_COLLISIONS};

constexpr std::size_t MIN_STRING_BYTES = 8;

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
    : id(takeNextId()),
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
  unregisterAllInterests();
  endSearch();
  WorldManager::getInstance().removeObject(this);
}

void Object::unregisterAllInterests() {
  const std::vector<std::string> interests = event_name;
  for (auto it = interests.rbegin(); it != interests.rend(); ++it) {
    unregisterInterest(*it);
  }
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

int Object::takeNextId() {
  // An id given by setId may stand at the largest int: the counter stops there
  // rather than overflow.
  return next_id < INT_MAX ? next_id++ : next_id;
}

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

const std::vector<std::string>& Object::getInterests() const { return event_name; }

Vector Object::getVelocity() const {
  Vector velocity = direction;
  velocity.scale(speed);
  return velocity;
}

Vector Object::predictPosition() const { return position + getVelocity(); }

void Object::applyAcceleration() {
  if (acceleration.isZero()) {
    return;
  }
  setVelocity(getVelocity() + acceleration);
  // However long it lasts, an acceleration drives no object past the fastest
  // speed a record may carry, so its position stays finite and its speed readable.
  speed = std::min(speed, MAX_WORLD_MAGNITUDE);
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
    next_id = new_id;
    takeNextId();
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

int Object::serialize(std::stringstream& stream, unsigned attr) {
  log().writeLog(20, "Object::serialize(): attr is %u, modified is %u (%s)", attr, modified,
                 boolToString(isModified()));
  log().writeLog(25, "\t%s", toBinaryString(attr).c_str());
  const unsigned record = attr != 0 ? attr : modified;
  ByteWriter(stream).writeUnsigned(record);
  for (const unsigned attribute : RECORD_ORDER) {
    if ((record & attribute) != 0) {
      writeAttribute(stream, attribute);
      modified &= ~attribute;
      logAttribute(attribute);
    }
  }
  return checkStream("Object::serialize()", stream);
}

void Object::writeAttribute(std::stringstream& stream, unsigned attribute) const {
  ByteWriter out(stream);
  switch (attribute) {
    case ID:
      out.writeInt(id);
      break;
    case ACTIVE:
      out.writeBool(is_active);
      break;
    case VISIBLE:
      out.writeBool(is_visible);
      break;
    case EVENTS:
      out.writeInt(getEventCount());
      for (const std::string& name : event_name) {
        out.writeString(name);
      }
      break;
    case BOX:
      box.serialize(stream);
      break;
    case POSITION:
      position.serialize(stream);
      break;
    case TYPE:
      out.writeString(type);
      break;
    case ANIMATION:
      animation.serialize(stream);
      break;
    case ALTITUDE:
      out.writeInt(altitude);
      break;
    case SOLIDNESS:
      out.writeInt(solidness);
      break;
    case NO_SOFT:
      out.writeBool(no_soft);
      break;
    case DIRECTION:
      direction.serialize(stream);
      break;
    case SPEED:
      out.writeFloat(speed);
      break;
    case ACCELERATION:
      acceleration.serialize(stream);
      break;
    case SHAPE:
      shape.serialize(stream);
      break;
    case FOLLOW_PATH:
      out.writeBool(follow_path);
      break;
    case PATH:
      path.serialize(stream);
      break;
    case AVOID_COLLISIONS:
      out.writeBool(avoid_collisions);
      break;
  }
}

int Object::deserialize(std::stringstream& stream, unsigned* attr) {
  std::uint32_t record = 0;
  ByteReader(stream, "Object::deserialize()").readUnsigned(record);
  if (attr != nullptr) {
    *attr = record;
  }
  log().writeLog(20, "Object::deserialize(): attr %u (%s)", record, toBinaryString(record).c_str());
  for (const unsigned attribute : RECORD_ORDER) {
    if ((record & attribute) != 0 && !readAttribute(stream, attribute)) {
      break;
    }
  }
  // What came from the stream counts as written.
  modified = 0;
  log().writeLog(20, "Object::deserialize(): done checking all types.");
  return checkStream("Object::deserialize()", stream);
}

bool Object::readAttribute(std::stringstream& stream, unsigned attribute) {
  ByteReader in(stream, "Object::deserialize()");
  int number;
  float decimal;
  bool flag;
  std::string text;
  Vector vector;
  switch (attribute) {
    case ID:
      if (in.readInRange(number, 0, MAX_RECORD_ID)) {
        setId(number);
      }
      break;
    case ACTIVE:
      if (in.readBool(flag)) {
        setActive(flag);
      }
      break;
    case VISIBLE:
      if (in.readBool(flag)) {
        setVisible(flag);
      }
      break;
    case EVENTS:
      readInterests(stream);
      break;
    case BOX: {
      Box read;
      if (read.deserialize(stream) == 0) {
        setBox(read);
      }
      break;
    }
    case POSITION:
      if (vector.deserialize(stream) == 0) {
        setPosition(vector);
      }
      break;
    case TYPE:
      if (in.readString(text)) {
        setType(text);
      }
      break;
    case ANIMATION:
      readAnimation(stream);
      break;
    case ALTITUDE:
      if (in.readInt(number)) {
        setAltitude(number);
      }
      break;
    case SOLIDNESS:
      if (in.readInt(number)) {
        setSolidness(static_cast<Solidness>(number));
      }
      break;
    case NO_SOFT:
      if (in.readBool(flag)) {
        setNoSoft(flag);
      }
      break;
    case DIRECTION:
      if (vector.deserialize(stream) == 0) {
        setDirection(vector);
      }
      break;
    case SPEED:
      if (in.readInRange(decimal, -MAX_WORLD_MAGNITUDE, MAX_WORLD_MAGNITUDE)) {
        setSpeed(decimal);
      }
      break;
    case ACCELERATION:
      if (vector.deserialize(stream) == 0) {
        setAcceleration(vector);
      }
      break;
    case SHAPE: {
      Shape read;
      if (read.deserialize(stream) == 0) {
        setShape(read);
      }
      break;
    }
    case FOLLOW_PATH:
      if (in.readBool(flag)) {
        setFollowPath(flag);
      }
      break;
    case PATH: {
      Path read;
      if (read.deserialize(stream) == 0) {
        setPath(read);
      }
      break;
    }
    case AVOID_COLLISIONS:
      if (in.readBool(flag)) {
        setAvoidCollisions(flag);
      }
      break;
  }
  if (in.good()) {
    logAttribute(attribute);
  }
  return in.good();
}

bool Object::readInterests(std::stringstream& stream) {
  unregisterAllInterests();
  ByteReader in(stream, "Object::deserialize()");
  int count;
  if (!in.readCount(count, MIN_STRING_BYTES, MAX_INTERESTS)) {
    return false;
  }
  for (int i = 0; i < count; i++) {
    std::string name;
    if (!in.readString(name)) {
      return false;
    }
    log().writeLog(25, "\t\tsize %d", static_cast<int>(name.size()));
    if (registerInterest(name) != 0) {
      log().writeLog("Object::deserialize(): Error! Register interest: %s", name.c_str());
    }
  }
  return true;
}

bool Object::readAnimation(std::stringstream& stream) {
  Animation read;
  if (read.deserialize(stream) != 0) {
    return false;
  }
  setAnimation(read, true);
  if (!read.getName().empty()) {
    // Finding the sprite starts it from its first frame: the index read comes back after.
    setSprite(read.getName());
    Animation found = animation;
    found.setIndex(read.getIndex());
    setAnimation(found, true);
  }
  return true;
}

void Object::logAttribute(unsigned attribute) const {
  if (log().getLogLevel() < 25) {
    return;
  }
  switch (attribute) {
    case ID:
      log().writeLog(25, "\tID: %d", id);
      break;
    case ACTIVE:
      log().writeLog(25, "\tACTIVE: %s", boolToString(is_active));
      break;
    case VISIBLE:
      log().writeLog(25, "\tVISIBLE: %s", boolToString(is_visible));
      break;
    case EVENTS:
      log().writeLog(25, "\tEVENTS: %d", getEventCount());
      for (const std::string& name : event_name) {
        log().writeLog(25, "\t\t%s (size %d)", name.c_str(), static_cast<int>(name.size()));
      }
      break;
    case BOX:
      log().writeLog(25, "\tBOX: %s", box.toString().c_str());
      break;
    case POSITION:
      log().writeLog(25, "\tPOSITION: %s", position.toString().c_str());
      break;
    case TYPE:
      log().writeLog(25, "\tTYPE: %s", type.c_str());
      break;
    case ANIMATION:
      log().writeLog(25, "\tANIMATION: %s", animation.toString().c_str());
      break;
    case ALTITUDE:
      log().writeLog(25, "\tALTITUDE: %d", altitude);
      break;
    case SOLIDNESS:
      log().writeLog(25, "\tSOLIDNESS: %s", solidnessToString(solidness).c_str());
      break;
    case NO_SOFT:
      log().writeLog(25, "\tNO_SOFT: %s", boolToString(no_soft));
      break;
    case DIRECTION:
      log().writeLog(25, "\tDIRECTION: %s", direction.toString().c_str());
      break;
    case SPEED:
      log().writeLog(25, "\tSPEED: %f", static_cast<double>(speed));
      break;
    case ACCELERATION:
      log().writeLog(25, "\tACCELERATION: %s", acceleration.toString().c_str());
      break;
    case SHAPE:
      log().writeLog(25, "\tSHAPE: %s", shape.toString().c_str());
      break;
    case FOLLOW_PATH:
      log().writeLog(25, "\tFOLLOW_PATH: %s", boolToString(follow_path));
      break;
    case PATH:
      log().writeLog(25, "\tPATH: %s", path.toString().c_str());
      break;
    case AVOID_COLLISIONS:
      log().writeLog(25, "\tAVOID_COLLISIONS: %s", boolToString(avoid_collisions));
      break;
  }
}

}  // namespace mv

// Everything that exists in the world derives from Object: identity, place,
// motion, collision class, drawing layer, animation, a path to follow and the
// events it listens to. The world owns every object from its construction on;
// objects end only through WorldManager::markForDelete or the world's shutdown.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Animation.h"
#include "Box.h"
#include "Event.h"
#include "Path.h"
#include "Shape.h"
#include "Solidness.h"
#include "Vector.h"

namespace mv {

class PathFind;

class Object {
 public:
  // The largest id a record may carry. The counter follows the largest id it
  // is given, so this leaves room for 2^30 more objects before it could reach
  // the largest int, and no record can make later objects share an id.
  static constexpr int MAX_RECORD_ID = (1 << 30) - 1;

  // Enters the world with the defaults: at (1,1), HARD, altitude 2, type "(Undefined)".
  Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  // Gives up its interests and leaves the world.
  virtual ~Object();

  virtual void setType(std::string new_type);
  virtual void setPosition(Vector new_position);

  // The base handles the end of a path search; 1 if the event was handled, else 0.
  virtual int eventHandler(const Event* event);

  // -1, changing nothing, for a value out of range or a refusal of the scene graph.
  virtual int setSolidness(Solidness new_solidness);
  virtual void setAvoidCollisions(bool new_avoid_collisions);
  virtual int setAltitude(int new_altitude);
  // Stored normalised.
  virtual void setDirection(Vector new_direction);
  // Speed is the velocity's length, direction its normalised form.
  virtual void setVelocity(Vector new_velocity);
  virtual void setAcceleration(Vector new_acceleration);
  virtual bool isVisible() const;
  virtual int setActive(bool new_active);
  // The object moves to the tail of every list it is in, so the grid sees the new box.
  virtual void setBox(Box new_box);
  // Shows the sprite loaded under `label`, with a box of its size; -1, changing
  // nothing, when no sprite has that label.
  virtual int setSprite(std::string label);
  // With `set_box`, the box becomes the sprite's size.
  virtual void setAnimation(Animation new_animation, bool set_box);
  virtual int draw();
  // Writes the attributes named in `attr`, or with 0 every attribute changed
  // since the last write, and counts them as written. 0, or -1 with a line in the log.
  virtual int serialize(std::stringstream& stream, unsigned attr = 0);
  // Applies a record through the setters, field by field, and counts the
  // object as written. A faulty record stops at its fault, keeping what came
  // before it, and gives -1. So is a number the world could not live with: an
  // id outside [0, 2^30), or a coordinate, extent or speed beyond
  // MAX_WORLD_MAGNITUDE. `attr`, if given, receives the record's mask, so
  // that a derived class knows which of its own attributes follow.
  virtual int deserialize(std::stringstream& stream, unsigned* attr = nullptr);
  virtual void setModified(unsigned mask);
  virtual unsigned getModified() const;
  virtual void setShape(Shape new_shape);
  // Also aims the object at the current node of its path, if one is left.
  virtual void setFollowPath(bool new_follow_path);

  int getId() const;
  std::string getType() const;
  Box getBox() const;
  Vector getPosition() const;
  Vector getDirection() const;
  float getSpeed() const;
  Vector getAcceleration() const;
  int getAltitude() const;
  Solidness getSolidness() const;
  Animation getAnimation() const;
  bool getNoSoft() const;
  bool getAvoidCollisions() const;
  bool getFollowPath() const;
  Path getPath() const;
  Shape getShape() const;
  bool isActive() const;
  bool isSolid() const;
  bool isModified() const;
  int getEventCount() const;
  // The registered event types, in order of registration.
  const std::vector<std::string>& getInterests() const;

  // Direction scaled by speed.
  Vector getVelocity() const;
  // Where the velocity takes the object in one step; acceleration plays no part.
  Vector predictPosition() const;
  // Adds the acceleration to the velocity, holding the speed to MAX_WORLD_MAGNITUDE.
  void applyAcceleration();
  // Steers towards the next node of the path, stepping onto nodes within reach.
  void followPath();

  // Raising the id past the counter keeps later objects' ids unique.
  void setId(int new_id);
  void setSpeed(float new_speed);
  void setPath(Path new_path);
  void setNoSoft(bool new_no_soft);
  void setVisible(bool new_visible);

  // Starts a search for a way from here to `goal`, in place of any search
  // already under way; the path is followed once found. Both ends go to the
  // nearest whole cell. -1, with a line in the log, for an end outside the
  // world's boundary.
  int findPath(Vector goal);
  // The same towards another object: the search ends where the two would touch.
  int findPath(Object* target);

  // Subscribes to an event through the manager that raises it; at most 100 interests.
  int registerInterest(std::string event_type);
  int unregisterInterest(std::string event_type);

 protected:
  // Adds the attributes to the modified mask.
  void markModified(unsigned attributes);
  // Hands the id this object took back to the counter, for objects that go without one.
  static void returnLastId();

 private:
  static int next_id;

  static int takeNextId();

  int startSearch(Vector goal, Object* target);
  void endSearch();
  // Drops every interest, the last registered first.
  void unregisterAllInterests();
  void writeAttribute(std::stringstream& stream, unsigned attribute) const;
  // Reads one attribute and applies it; false once the stream has failed.
  bool readAttribute(std::stringstream& stream, unsigned attribute);
  bool readInterests(std::stringstream& stream);
  bool readAnimation(std::stringstream& stream);
  void logAttribute(unsigned attribute) const;

  int id;
  std::string type;
  bool is_active;
  bool is_visible;
  Box box;
  Vector position;
  Vector direction;
  float speed;
  Vector acceleration;
  int altitude;
  Solidness solidness;
  Animation animation;
  bool no_soft;
  // The registered event types, in order of registration.
  std::vector<std::string> event_name;
  unsigned modified;
  Shape shape;
  Path path;
  bool follow_path;
  bool avoid_collisions;
  // The search for a way under way, owned; null when there is none.
  PathFind* path_find;
};

}  // namespace mv

// The game world: owns every object from its construction to its deletion,
// moves objects by their velocities each frame with collisions and "mv-out",
// carries out deferred deletions, and draws what the view shows. Events that
// belong to no other manager, the game's own included, are dispatched here.
#pragma once

#include <string>

#include "Box.h"
#include "Manager.h"
#include "ObjectList.h"
#include "SceneGraph.h"
#include "Vector.h"

namespace mv {

class Object;

class WorldManager : public Manager {
 public:
  static WorldManager& getInstance();

  // Every label but input, steps, and the two that objects get without asking.
  bool isValid(std::string event_type) const override;

  int startUp() override;
  // Deletes every object still in the world.
  void shutDown() override;

  // Moves every active object, then deletes what was marked for deletion.
  void update();
  // Draws the visible objects that the view shows, altitude 0 first.
  void draw();

  int insertObject(Object* o);
  int removeObject(Object* o);
  // The object is deleted at the end of the next update; until then it lives on.
  int markForDelete(Object* o);
  // Moves the object to `where` unless something HARD is in the way: 0 if it
  // moved, -1 if it stayed. Collision events are delivered on the spot.
  int moveObject(Object* o, Vector where);

  ObjectList getCollisions(const Object* o, Vector where) const;
  // The active objects; with `inactive`, followed by the inactive ones.
  ObjectList getAllObjects(bool inactive = false) const;
  ObjectList objectsOfType(std::string type) const;
  SceneGraph& getSceneGraph();

  Box getBoundary() const;
  // A new boundary restarts the grid, whose cells follow it: set it before making objects.
  void setBoundary(Box new_boundary);
  Box getView() const;
  void setView(Box new_view);
  // Centres the view on a point, held inside the boundary.
  void setViewPosition(Vector centre);
  // The dead zone in the view's centre, as fractions of its width and height.
  void setViewSlack(Vector new_view_slack);
  Vector getViewSlack() const;
  // The view keeps `o` out of the edges of the screen as it moves: it is centred
  // on `o` now, then moves when `o` leaves the slack zone. Null stops following.
  // -1 if `o` is not in the world.
  int setViewFollowing(Object* o);
  Object* getViewFollowing() const;

 private:
  WorldManager();
  int avoidHardObstacle(Object* o, Vector& where, ObjectList& collisions);
  bool deliverCollisions(Object* o, Vector where, const ObjectList& collisions);
  void followWithView(const Object* o);

  SceneGraph scene_graph;
  ObjectList deletions;
  Object* view_following;
  Box boundary;
  Box view;
  Vector view_slack;
};

}  // namespace mv

// The index of the world: which objects exist, and in which of its views each
// belongs (active or not, solid, visible by altitude, by type). Object's
// setters tell the graph of a change before they store it, so each update
// here still sees the object's old value.
#pragma once

#include <map>
#include <string>

#include "Grid.h"
#include "ObjectList.h"
#include "Solidness.h"
#include "Vector.h"

namespace mv {

class Object;

class SceneGraph {
 public:
  SceneGraph();
  ~SceneGraph();
  SceneGraph(const SceneGraph&) = delete;
  SceneGraph& operator=(const SceneGraph&) = delete;

  // Empties the type index and starts or stops the grid; the object lists stay.
  int startUp();
  void shutDown();

  int insertObject(Object* o);
  int removeObject(Object* o);

  ObjectList activeObjects() const;
  ObjectList inactiveObjects() const;
  // The active visible objects at that altitude, in drawing order.
  ObjectList visibleObjects(int altitude) const;
  ObjectList objectsOfType(std::string type) const;
  ObjectList getCollisions(const Object* o, Vector where) const;

  int updateActive(Object* o, bool active);
  int updateAltitude(Object* o, int altitude);
  int updatePosition(Object* o, Vector where);
  int updateSolidness(Object* o, Solidness solidness);
  int updateType(Object* o, std::string type);
  int updateVisible(Object* o, bool visible);

  const Grid& getGrid() const;
  ObjectList solidObjects() const;
  // How many types the active objects have between them.
  int getTypeCount() const;

 private:
  int deactivate(Object* o);
  int activate(Object* o);
  int insertIntoType(Object* o, const std::string& type);
  int removeFromType(Object* o, const std::string& type);

  ObjectList objects;
  ObjectList solid_objects;
  ObjectList visible_objects[5];
  ObjectList inactive_objects;
  std::map<std::string, ObjectList> type_map;
  Grid grid;
};

}  // namespace mv

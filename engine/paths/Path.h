// A route through the world: positions in order of travel and a cursor on the
// one being headed for. Passed nodes stay; only the cursor moves.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Vector.h"

namespace mv {

class Path {
 public:
  Path();

  // No node is left to head for; an empty path is done.
  bool isDone() const;

  // The node being headed for, or (0,0) when the path is done.
  Vector getCurrentNode() const;

  // Moves the cursor on by one, never past the end, and answers the path as it now is.
  Path popNode();

  // Replaces the nodes; the cursor stays where it is.
  void setNodes(std::vector<Vector> new_nodes);

  // Every node, passed or not, in order of travel.
  const std::vector<Vector>& getNodes() const;
  // Where the cursor stands among the nodes.
  int getIndex() const;

  // Every node, from the first whatever the cursor, each followed by "|".
  std::string toString() const;

  // The number of nodes in eight bytes, then each node; the cursor does not
  // travel, so a path read back starts at its first node.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  std::vector<Vector> nodes;
  int index;
};

}  // namespace mv

#include "Path.h"

#include <algorithm>
#include <utility>

namespace mv {

Path::Path() : index(0) {}

bool Path::isDone() const { return index >= static_cast<int>(nodes.size()); }

Vector Path::getCurrentNode() const { return isDone() ? Vector() : nodes[index]; }

Path Path::popNode() {
  index = std::min(index + 1, static_cast<int>(nodes.size()));
  return *this;
}

void Path::setNodes(std::vector<Vector> new_nodes) { nodes = std::move(new_nodes); }

std::string Path::toString() const {
  std::string text;
  for (const Vector& node : nodes) {
    text += node.toString() + "|";
  }
  return text;
}

const std::vector<Vector>& Path::getNodes() const { return nodes; }

int Path::getIndex() const { return index; }

}  // namespace mv

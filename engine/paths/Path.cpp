#include "Path.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "utility.h"

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

int Path::serialize(std::stringstream& stream) const {
  ByteWriter(stream).writeLength(nodes.size());
  for (const Vector& node : nodes) {
    node.serialize(stream);
  }
  return checkStream("Path::serialize()", stream);
}

int Path::deserialize(std::stringstream& stream) {
  constexpr std::size_t NODE_BYTES = 8;
  constexpr std::size_t MAX_NODES = 1 << 20;
  std::size_t count;
  if (ByteReader(stream, "Path::deserialize()").readLength(count, NODE_BYTES, MAX_NODES)) {
    std::vector<Vector> read(count);
    for (Vector& node : read) {
      node.deserialize(stream);
    }
    if (stream.good()) {
      nodes = std::move(read);
      index = 0;
    }
  }
  return checkStream("Path::deserialize()", stream);
}

}  // namespace mv

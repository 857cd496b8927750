#include "Animation.h"

#include <sstream>
#include <utility>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "utility.h"

namespace mv {

Animation::Animation() : sprite(nullptr), index(0), slowdown_count(0) {}

void Animation::setSprite(Sprite* new_sprite) {
  if (new_sprite != nullptr) {
    name = new_sprite->getLabel();
  }
  sprite = new_sprite;
  index = 0;
}

Sprite* Animation::getSprite() const { return sprite; }
void Animation::setName(std::string new_name) { name = std::move(new_name); }
std::string Animation::getName() const { return name; }
void Animation::setIndex(int new_index) { index = new_index; }
int Animation::getIndex() const { return index; }
void Animation::setSlowdownCount(int new_slowdown_count) { slowdown_count = new_slowdown_count; }
int Animation::getSlowdownCount() const { return slowdown_count; }

int Animation::draw(Vector position) {
  if (sprite == nullptr) {
    return 0;
  }
  const int result = sprite->draw(index, position, sprite->getTransparency());
  if (slowdown_count == -1) {
    return result;
  }
  // A count or an index that came from a record may stand anywhere, even at
  // the largest int: both advance without overflow.
  if (static_cast<long long>(slowdown_count) + 1 < sprite->getSlowdown()) {
    slowdown_count++;
    return result;
  }
  slowdown_count = 0;
  index = index < sprite->getFrameCount() - 1 ? index + 1 : 0;
  return result;
}

Box Animation::getBox() const {
  if (sprite == nullptr) {
    return Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f);
  }
  const float width = static_cast<float>(sprite->getWidth());
  const float height = static_cast<float>(sprite->getHeight());
  return Box(Vector(width * -0.5f, height * -0.5f), width, height);
}

std::string Animation::toString() const {
  return "sprite " + name + ", frame_idx " + std::to_string(index);
}

int Animation::serialize(std::stringstream& stream) const {
  ByteWriter out(stream);
  out.writeString(name);
  out.writeInt(index);
  out.writeInt(slowdown_count);
  return checkStream("Animation::serialize()", stream);
}

int Animation::deserialize(std::stringstream& stream) {
  ByteReader in(stream, "Animation::deserialize()");
  std::string new_name;
  int new_index, new_slowdown_count;
  if (in.readString(new_name) && in.readInt(new_index) && in.readInt(new_slowdown_count)) {
    // A name ends at its first zero byte, as a sprite's label can hold none.
    name = new_name.substr(0, new_name.find('\0'));
    index = new_index;
    slowdown_count = new_slowdown_count;
  }
  return checkStream("Animation::deserialize()", stream);
}

}  // namespace mv

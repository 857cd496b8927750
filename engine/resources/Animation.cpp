#include "Animation.h"

#include <utility>

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
  slowdown_count++;
  if (slowdown_count < sprite->getSlowdown()) {
    return result;
  }
  slowdown_count = 0;
  index++;
  if (index >= sprite->getFrameCount()) {
    index = 0;
  }
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

}  // namespace mv

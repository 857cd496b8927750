#include "Sprite.h"

#include <new>
#include <utility>

#include "LogManager.h"

namespace mv {

Sprite::Sprite(int max_frames)
    : width(0),
      height(0),
      max_frame_count(0),
      frame_count(0),
      color(WHITE),
      slowdown(1),
      transparency(0),
      label("[Undefined]") {
  try {
    if (max_frames < 0) {
      throw std::bad_alloc();
    }
    frame.resize(static_cast<std::size_t>(max_frames));
    max_frame_count = max_frames;
  } catch (const std::bad_alloc&) {
    LogManager::getInstance().writeLog("Sprite::Sprite(): Error! Unable to allocate %d frames.",
                                       max_frames);
  }
}

int Sprite::addFrame(Frame new_frame) {
  if (frame_count == max_frame_count) {
    return -1;
  }
  frame[frame_count] = std::move(new_frame);
  frame_count++;
  return 0;
}

Frame Sprite::getFrame(int index) const {
  if (index < 0 || index >= frame_count) {
    return Frame();
  }
  return frame[index];
}

int Sprite::getFrameCount() const { return frame_count; }
void Sprite::setWidth(int new_width) { width = new_width; }
int Sprite::getWidth() const { return width; }
void Sprite::setHeight(int new_height) { height = new_height; }
int Sprite::getHeight() const { return height; }
void Sprite::setColor(Color new_color) { color = new_color; }
Color Sprite::getColor() const { return color; }
void Sprite::setSlowdown(int new_slowdown) { slowdown = new_slowdown; }
int Sprite::getSlowdown() const { return slowdown; }
void Sprite::setTransparency(char new_transparency) { transparency = new_transparency; }
char Sprite::getTransparency() const { return transparency; }
void Sprite::setLabel(std::string new_label) { label = std::move(new_label); }
std::string Sprite::getLabel() const { return label; }

int Sprite::draw(int frame_index, Vector position, char frame_transparency) const {
  return getFrame(frame_index).draw(position, color, frame_transparency);
}

}  // namespace mv

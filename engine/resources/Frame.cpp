#include "Frame.h"

#include <utility>

#include "DisplayManager.h"

namespace mv {

Frame::Frame() : width(0), height(0) {}

Frame::Frame(int new_width, int new_height, std::string new_frame_str)
    : width(new_width), height(new_height), frame_str(std::move(new_frame_str)) {}

int Frame::getWidth() const { return width; }
int Frame::getHeight() const { return height; }
std::string Frame::getString() const { return frame_str; }

int Frame::draw(Vector position, Color color, char transparency) const {
  if (frame_str.empty() || height < 1) {
    return 0;
  }
  const float x_offset = (width - 1) * 0.5f;
  const float y_offset = (height - 1) * 0.5f;
  DisplayManager& display = DisplayManager::getInstance();
  for (int y = 0; y < height; y++) {
    for (int x = 0; x < width; x++) {
      // A frame string shorter than its size claims draws only what it has.
      const std::size_t at = static_cast<std::size_t>(y) * width + x;
      if (at >= frame_str.size()) {
        return 0;
      }
      const char c = frame_str[at];
      if (transparency != 0 && c == transparency) {
        continue;
      }
      const Vector cell(position.getX() + x - x_offset, position.getY() + y - y_offset);
      if (display.drawCharacter(cell, c, color, 0.0f) != 0) {
        return -1;
      }
    }
  }
  return 0;
}

}  // namespace mv

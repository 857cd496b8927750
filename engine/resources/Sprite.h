// A named sequence of frames with one colour and one pace. Sprites are loaded
// once and shared: objects point at them through their animations.
#pragma once

#include <string>
#include <vector>

#include "Color.h"
#include "Frame.h"
#include "Vector.h"

namespace mv {

class Sprite {
 public:
  // Room for `max_frames` frames, allocated once.
  explicit Sprite(int max_frames);

  Sprite(const Sprite&) = delete;
  Sprite& operator=(const Sprite&) = delete;

  // Stores the frame after those added so far; -1, dropping it, when the sprite is full.
  int addFrame(Frame new_frame);

  // A copy of frame `index`, or an empty frame outside the frames added.
  Frame getFrame(int index) const;
  int getFrameCount() const;

  void setWidth(int new_width);
  int getWidth() const;
  void setHeight(int new_height);
  int getHeight() const;
  void setColor(Color new_color);
  Color getColor() const;
  // Steps each frame stays on screen.
  void setSlowdown(int new_slowdown);
  int getSlowdown() const;
  // The character that is not drawn; 0 draws every character.
  void setTransparency(char new_transparency);
  char getTransparency() const;
  void setLabel(std::string new_label);
  std::string getLabel() const;

  // Draws frame `frame_index` centred on `position`; an index out of range draws nothing.
  int draw(int frame_index, Vector position, char transparency) const;

 private:
  int width;
  int height;
  int max_frame_count;
  int frame_count;
  Color color;
  int slowdown;
  char transparency;
  std::vector<Frame> frame;
  std::string label;
};

}  // namespace mv

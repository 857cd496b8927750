// One object's place in a shared sprite: the frame it shows next and how long
// it has waited on the current one.
#pragma once

#include <iosfwd>
#include <string>

#include "Box.h"
#include "Sprite.h"
#include "Vector.h"

namespace mv {

class Animation {
 public:
  Animation();

  // Starts the sprite from its first frame; a null sprite keeps the old name.
  void setSprite(Sprite* new_sprite);
  Sprite* getSprite() const;
  void setName(std::string new_name);
  std::string getName() const;
  void setIndex(int new_index);
  int getIndex() const;
  // -1 freezes the animation on its frame.
  void setSlowdownCount(int new_slowdown_count);
  int getSlowdownCount() const;

  // Draws the current frame centred on `position`, then advances at the sprite's pace.
  int draw(Vector position);

  // A box as large as a frame, centred on the position; the default object box without a sprite.
  Box getBox() const;

  // "sprite ship, frame_idx 2".
  std::string toString() const;

  // The sprite travels by its name, with the index and slowdown count; a
  // reader finds the sprite by the name, and its own sprite stays meanwhile.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  Sprite* sprite;
  int index;
  int slowdown_count;
  std::string name;
};

}  // namespace mv

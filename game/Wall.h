// One of the four walls of a room: HARD, so it stops the hero, and told apart
// from the others by its type alone, which is all that shots look at.
#pragma once

#include <string>

#include "Object.h"

class Wall : public mv::Object {
 public:
  // `type` is "top wall", "bottom wall", "left wall" or "right wall".
  Wall(const std::string& type, const std::string& sprite, mv::Vector position);
};

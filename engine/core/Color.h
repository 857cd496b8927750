// The eight colours of the character cells. The numbers are stored in sprite
// files, the configuration and serialised objects, so they never change.
#pragma once

namespace mv {

// Any int is a valid value, so numbers read from files can be checked after the cast.
enum Color : int {
  BLACK = 0,
  RED = 1,
  GREEN = 2,
  YELLOW = 3,
  BLUE = 4,
  MAGENTA = 5,
  CYAN = 6,
  WHITE = 7,
  // The red, green and blue values are carried by whoever uses the colour.
  CUSTOM = 8,
};

}  // namespace mv

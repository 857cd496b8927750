// How an object takes part in collisions.
#pragma once

namespace mv {

enum Solidness : int {
  HARD = 0,      // collides, and nothing solid may enter it
  SOFT = 1,      // collides, but may overlap other soft objects
  SPECTRAL = 2,  // never collides
};

}  // namespace mv

// The engine's mouse button codes, which mouse events carry.
#pragma once

namespace mv {
namespace Mouse {

enum Button : int {
  UNDEFINED_BUTTON = -1,
  LEFT = 0,
  RIGHT = 1,
  MIDDLE = 2,
};

}  // namespace Mouse
}  // namespace mv

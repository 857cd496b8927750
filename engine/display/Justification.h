// Where a drawn string stands against its position.
#pragma once

namespace mv {

enum Justification : int {
  // The string starts at the position.
  LEFT = 0,
  // The string's middle character, rounded down, stands at the position.
  CENTER = 1,
  // The string ends just before the position.
  RIGHT = 2,
};

}  // namespace mv

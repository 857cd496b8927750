// Our own player at Rustline, for tests: the engine headless with no sleep
// between frames, in a scratch copy of the game's working directory with the
// game's own sprites and sounds one level up, and with the engine's random
// seed and the game's clock fixed, so that a play can be repeated exactly.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "ScratchDirectory.h"

struct Playthrough {
  std::vector<GameRecord> games;
  // The log of the run, morvane.log.
  std::string log;
};

class PlaythroughFolder {
 public:
  // Makes the working directory inside a scratch directory and goes into it.
  PlaythroughFolder();

 private:
  mv_test::ScratchDirectory scratch;
};

// Plays `frames` frames with a player seeded with `seed`, from the start
// screen on, and stops the engine again; `at_frame` runs at the start of
// every frame, before the player looks.
Playthrough play(int frames, unsigned seed,
                 const std::function<void(int frame, const AutoPlayer& player)>& at_frame);

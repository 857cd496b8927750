// The game's short sound effects.
#pragma once

#include "synth.h"

namespace soundmaker {

// The hero is hit: a short punchy crunch.
Samples makeDamage();
// The hero is destroyed: an explosion that sinks into a falling, sad phrase.
Samples makeGameOver();
// One volley of the hero: a short, soft laser shot that bears repeating five times a second.
Samples makeShoot();
// An upgrade is chosen: a bright rising chime.
Samples makeUpgrade();

}  // namespace soundmaker

// The game's theme music.
#pragma once

#include "synth.h"

namespace soundmaker {

// A calm, slightly gritty chiptune of sixteen bars that loops without a seam: its last sample
// leads into its first, and every note or echo that rings past the end sounds again at the
// start.
Samples makeTheme();

}  // namespace soundmaker

// A world strewn with HARD blocks, one cell each, for path searches to find
// their way through: the same world for a given seed, in tests and benchmarks.
#pragma once

#include <vector>

#include "Cell.h"

namespace mv_scenes {

// Sets the world's boundary and view to `width` by `height` and blocks each
// cell with the chance `share`, drawn from `seed`; the cells in `kept_free`
// stay open. The world must be started.
void buildBlockedWorld(int width, int height, double share, unsigned seed,
                       const std::vector<mv::Cell>& kept_free);

}  // namespace mv_scenes

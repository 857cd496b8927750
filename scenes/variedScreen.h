// A screen full of cells that differ from their neighbours in character and
// colour: the heaviest picture the display draws, for benchmarks and for
// comparing two ways of drawing it.
#pragma once

namespace mv_scenes {

// Draws every cell of the display's grid once. Each `frame` shifts the
// characters and colours, so that no two frames in a row look alike.
void drawVariedScreen(int frame);

// Draws every cell of the grid once, as drawVariedScreen does, but each cell
// changes only once in `period` frames, and their turns are spread so that
// about one cell in `period` changes from one frame to the next.
void drawSlowlyChangingScreen(int frame, int period);

}  // namespace mv_scenes

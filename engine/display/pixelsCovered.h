// Which whole pixels the graphics card fills for a rectangle: those whose centres lie inside it.
#pragma once

#include <SFML/Graphics/Rect.hpp>

namespace mv {

// The pixels whose centres lie on or past the left and top edges and before the right and bottom
// ones.
sf::IntRect pixelsCovered(const sf::FloatRect& area);

}  // namespace mv

// The engine's colours as SFML draws them. Kept apart from the other colour
// helpers so that only the display's code sees SFML.
#pragma once

#include <SFML/Graphics/Color.hpp>

#include "Color.h"

namespace mv {

// The colour, opaque. CUSTOM and unknown colours give white, with a line in the log.
sf::Color colorToSFML(Color c);

}  // namespace mv

// How large a window may be on the desktop, and where it goes there.
#pragma once

#include <SFML/System/Vector2.hpp>

namespace mv {

// What a window leaves of the desktop for the desktop's own things: a panel
// or a dock, the window's title bar and its borders.
constexpr int DESKTOP_ROOM_ACROSS = 40;
constexpr int DESKTOP_ROOM_DOWN = 80;

// The wanted size with each side of 0 taken from the desktop.
sf::Vector2i withDesktopSides(sf::Vector2i wanted, sf::Vector2i desktop);

// The size of a window of `cells`: with a side of 0, the desktop's size for
// that side, as it is; else the wanted size when it fits the desktop less
// that room, or the largest size that fits, with the same cells, each of the
// same proportion. Cells of whole pixels stay whole where their proportion
// allows (10 by 20 becomes 7 by 14, not 7.17 by 14.33), so that glyphs keep
// standing on whole pixels; other cells become fractions of pixels.
sf::Vector2i fitOnDesktop(sf::Vector2i wanted, sf::Vector2i cells, sf::Vector2i desktop);

// The top left corner that centres a window of `size` on the desktop, never
// left of or above the desktop's origin.
sf::Vector2i centreOnDesktop(sf::Vector2i size, sf::Vector2i desktop);

}  // namespace mv

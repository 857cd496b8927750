#include "windowOnDesktop.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace mv {

namespace {

bool fitsIn(sf::Vector2i size, sf::Vector2i room) { return size.x <= room.x && size.y <= room.y; }

// The largest whole-pixel cell of the proportion of `cell` whose window fits
// `room`; (0, 0) when even the smallest such cell does not.
sf::Vector2i largestWholeCell(sf::Vector2i cell, sf::Vector2i cells, sf::Vector2i room) {
  const int common = std::gcd(cell.x, cell.y);
  const sf::Vector2i smallest(cell.x / common, cell.y / common);
  const int times = std::min(room.x / (smallest.x * cells.x), room.y / (smallest.y * cells.y));
  return smallest * times;
}

// Shrunk by the side that overshoots most, the other side in proportion.
sf::Vector2i scaledInto(sf::Vector2i wanted, sf::Vector2i room) {
  const std::int64_t across = static_cast<std::int64_t>(wanted.x) * room.y;
  const std::int64_t down = static_cast<std::int64_t>(wanted.y) * room.x;
  if (across >= down) {
    return {room.x, std::max(1, static_cast<int>(down / wanted.x))};
  }
  return {std::max(1, static_cast<int>(across / wanted.y)), room.y};
}

}  // namespace

sf::Vector2i withDesktopSides(sf::Vector2i wanted, sf::Vector2i desktop) {
  return {wanted.x == 0 ? desktop.x : wanted.x, wanted.y == 0 ? desktop.y : wanted.y};
}

sf::Vector2i fitOnDesktop(sf::Vector2i wanted, sf::Vector2i cells, sf::Vector2i desktop) {
  if (wanted.x == 0 || wanted.y == 0) {
    return withDesktopSides(wanted, desktop);
  }
  const sf::Vector2i room(std::max(1, desktop.x - DESKTOP_ROOM_ACROSS),
                          std::max(1, desktop.y - DESKTOP_ROOM_DOWN));
  if (fitsIn(wanted, room)) {
    return wanted;
  }
  if (wanted.x % cells.x == 0 && wanted.y % cells.y == 0) {
    const sf::Vector2i cell =
        largestWholeCell(sf::Vector2i(wanted.x / cells.x, wanted.y / cells.y), cells, room);
    if (cell.x > 0) {
      return {cell.x * cells.x, cell.y * cells.y};
    }
  }
  return scaledInto(wanted, room);
}

sf::Vector2i centreOnDesktop(sf::Vector2i size, sf::Vector2i desktop) {
  return {std::max(0, (desktop.x - size.x) / 2), std::max(0, (desktop.y - size.y) / 2)};
}

}  // namespace mv

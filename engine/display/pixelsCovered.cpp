#include "pixelsCovered.h"

#include <cmath>

namespace mv {

namespace {

int firstPixelFrom(float edge) { return static_cast<int>(std::ceil(edge - 0.5f)); }

}  // namespace

sf::IntRect pixelsCovered(const sf::FloatRect& area) {
  const int left = firstPixelFrom(area.left);
  const int top = firstPixelFrom(area.top);
  return sf::IntRect(left, top, firstPixelFrom(area.left + area.width) - left,
                     firstPixelFrom(area.top + area.height) - top);
}

}  // namespace mv

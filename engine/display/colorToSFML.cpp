#include "colorToSFML.h"

#include "LogManager.h"
#include "utility.h"

namespace mv {

sf::Color colorToSFML(Color c) {
  if (c == CUSTOM) {
    LogManager::getInstance().writeLog(5, "colorToSFML(): Color is CUSTOM.");
    return sf::Color::White;
  }
  if (c < BLACK || c > WHITE) {
    LogManager::getInstance().writeLog(5, "colorToSFML(): Color %d not supported.",
                                       static_cast<int>(c));
    return sf::Color::White;
  }
  unsigned char r = 0, g = 0, b = 0;
  colorToRGB(c, r, g, b);
  return sf::Color(r, g, b);
}

}  // namespace mv

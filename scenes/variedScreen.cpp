#include "variedScreen.h"

#include "DisplayManager.h"

namespace mv_scenes {

namespace {

// Printable ASCII from '!' to '~', blanks and a few characters above it.
char cellCharacter(int x, int y, int frame) {
  const int choice = (x * 7 + y * 13 + frame * 5) % 101;
  if (choice >= 94) {
    return choice % 2 == 0 ? ' ' : static_cast<char>(0xb0 + choice - 94);
  }
  return static_cast<char>('!' + choice);
}

}  // namespace

void drawVariedScreen(int frame) { drawSlowlyChangingScreen(frame, 1); }

void drawSlowlyChangingScreen(int frame, int period) {
  mv::DisplayManager& display = mv::DisplayManager::getInstance();
  for (int y = 0; y < display.getVerticalChars(); ++y) {
    for (int x = 0; x < display.getHorizontalChars(); ++x) {
      const int turn = (x * 31 + y * 17) % period;
      const int look = (frame + turn) / period;
      const unsigned char red = static_cast<unsigned char>((x * 37 + look * 11) % 256);
      const unsigned char green = static_cast<unsigned char>((y * 53 + x * 3) % 256);
      const unsigned char blue = static_cast<unsigned char>((x * y + look * 29) % 256);
      display.drawCharacter(mv::Vector(static_cast<float>(x), static_cast<float>(y)),
                            cellCharacter(x, y, look), red, green, blue, 0.0f);
    }
  }
}

}  // namespace mv_scenes

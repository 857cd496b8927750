#include "TextScreen.h"

#include <cmath>

#include "ScratchDirectory.h"
#include "utility.h"

namespace mv_test {

namespace {

char colorDigit(unsigned char r, unsigned char g, unsigned char b) {
  for (int c = mv::BLACK; c <= mv::WHITE; ++c) {
    unsigned char cr = 0, cg = 0, cb = 0;
    mv::colorToRGB(static_cast<mv::Color>(c), cr, cg, cb);
    if (cr == r && cg == g && cb == b) {
      return static_cast<char>('0' + c);
    }
  }
  return '?';
}

}  // namespace

TextScreen::TextScreen(int width, int height)
    : characters(height, std::string(width, ' ')), color_digits(height, std::string(width, '.')) {}

void TextScreen::recordCell(mv::Vector position, char character, unsigned char r, unsigned char g,
                            unsigned char b) {
  const float x = std::floor(position.getX());
  const float y = std::floor(position.getY());
  const auto rows = static_cast<float>(characters.size());
  if (!(y >= 0 && y < rows && x >= 0 && x < static_cast<float>(characters[0].size()))) {
    off_screen++;
    return;
  }
  characters[static_cast<int>(y)][static_cast<int>(x)] = character;
  color_digits[static_cast<int>(y)][static_cast<int>(x)] = colorDigit(r, g, b);
}

std::string TextScreen::text() const { return fileText(characters); }

std::string TextScreen::colors() const { return fileText(color_digits); }

int TextScreen::offScreen() const { return off_screen; }

}  // namespace mv_test

#include "GlyphMasks.h"

#include <SFML/Graphics/Image.hpp>
#include <SFML/Graphics/RenderTexture.hpp>
#include <algorithm>
#include <string>

#include "LogManager.h"
#include "pixelsCovered.h"

namespace mv {

namespace {

// The masks are drawn on a square of this many pixels, as many at a time as fit.
constexpr unsigned CANVAS_SIDE = 1024;

}  // namespace

GlyphMasks::GlyphMasks() = default;

GlyphMasks::~GlyphMasks() = default;

bool GlyphMasks::setText(const sf::Text& new_text) {
  text = new_text;
  text.setFillColor(sf::Color::White);
  baseline = static_cast<float>(text.getCharacterSize());
  for (std::unique_ptr<GlyphMask>& mask : masks) {
    mask.reset();
  }
  wanted.clear();
  // A glyph reaches about one character size across and down from its origin.
  if (2 * text.getCharacterSize() + 8 > CANVAS_SIDE) {
    LogManager::getInstance().writeLog(
        "GlyphMasks::setText(): Warning! Characters of %u pixels are too large to be laid on a "
        "picture; they are drawn one at a time.",
        text.getCharacterSize());
    return false;
  }
  canvas = std::make_unique<sf::RenderTexture>();
  if (!canvas->create(CANVAS_SIDE, CANVAS_SIDE)) {
    LogManager::getInstance().writeLog(
        "GlyphMasks::setText(): Warning! No canvas of %u by %u pixels for glyphs; they are drawn "
        "one at a time.",
        CANVAS_SIDE, CANVAS_SIDE);
    canvas.reset();
    return false;
  }
  return true;
}

sf::IntRect GlyphMasks::reach(const sf::Glyph& glyph, float baseline, sf::Vector2f origin) {
  // The glyph's quad reaches one pixel past its bounds, as the text draws it;
  // one pixel more on each side keeps rounding at its edges inside the mask.
  const sf::IntRect quad = pixelsCovered(sf::FloatRect(
      origin.x + glyph.bounds.left - 1.0f, origin.y + baseline + glyph.bounds.top - 1.0f,
      glyph.bounds.width + 2.0f, glyph.bounds.height + 2.0f));
  return sf::IntRect(quad.left - 1, quad.top - 1, quad.width + 2, quad.height + 2);
}

const GlyphMask* GlyphMasks::find(char ch) const {
  const GlyphMask* mask = masks[static_cast<unsigned char>(ch)].get();
  return mask != nullptr && mask->drawn ? mask : nullptr;
}

void GlyphMasks::ask(char ch, const sf::Glyph& glyph) {
  std::unique_ptr<GlyphMask>& mask = masks[static_cast<unsigned char>(ch)];
  if (mask != nullptr) {
    return;
  }
  mask = std::make_unique<GlyphMask>();
  mask->rect = reach(glyph, baseline, sf::Vector2f());
  wanted.push_back(ch);
}

void GlyphMasks::drawMissing() {
  if (canvas == nullptr) {
    wanted.clear();
    return;
  }
  for (std::size_t first = 0; first < wanted.size();) {
    first += drawSome(first);
  }
  wanted.clear();
}

std::size_t GlyphMasks::drawSome(std::size_t first) {
  int slot_width = 1;
  int slot_height = 1;
  for (std::size_t index = first; index < wanted.size(); ++index) {
    const sf::IntRect& rect = masks[static_cast<unsigned char>(wanted[index])]->rect;
    slot_width = std::max(slot_width, rect.width);
    slot_height = std::max(slot_height, rect.height);
  }
  const std::size_t columns = std::max(CANVAS_SIDE / static_cast<unsigned>(slot_width), 1u);
  const std::size_t rows = std::max(CANVAS_SIDE / static_cast<unsigned>(slot_height), 1u);
  const std::size_t count =
      std::min(std::max<std::size_t>(columns * rows, 1), wanted.size() - first);
  const auto slotCorner = [&](std::size_t place) {
    return sf::Vector2i(static_cast<int>(place % columns) * slot_width,
                        static_cast<int>(place / columns) * slot_height);
  };

  canvas->clear(sf::Color::Black);
  for (std::size_t place = 0; place < count; ++place) {
    const char ch = wanted[first + place];
    const sf::IntRect& rect = masks[static_cast<unsigned char>(ch)]->rect;
    text.setString(std::string(1, ch));
    text.setPosition(sf::Vector2f(slotCorner(place) - sf::Vector2i(rect.left, rect.top)));
    canvas->draw(text);
  }
  canvas->display();

  const sf::Image drawn = canvas->getTexture().copyToImage();
  for (std::size_t place = 0; place < count; ++place) {
    readMask(drawn, slotCorner(place), *masks[static_cast<unsigned char>(wanted[first + place])]);
  }
  return count;
}

// White ink on black: each pixel's red is the share of it that the glyph
// covers. The mask keeps the least rectangle that holds all the ink.
void GlyphMasks::readMask(const sf::Image& drawn, sf::Vector2i corner, GlyphMask& mask) {
  const sf::Vector2u canvas_size = drawn.getSize();
  const auto coverageAt = [&](int x, int y) -> unsigned char {
    const unsigned column = static_cast<unsigned>(corner.x + x);
    const unsigned row = static_cast<unsigned>(corner.y + y);
    return column < canvas_size.x && row < canvas_size.y ? drawn.getPixel(column, row).r : 0;
  };
  int left = mask.rect.width, top = mask.rect.height, right = 0, bottom = 0;
  for (int y = 0; y < mask.rect.height; ++y) {
    for (int x = 0; x < mask.rect.width; ++x) {
      if (coverageAt(x, y) != 0) {
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x + 1);
        bottom = std::max(bottom, y + 1);
      }
    }
  }
  right = std::max(right, left);
  bottom = std::max(bottom, top);
  mask.coverage.clear();
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      mask.coverage.push_back(coverageAt(x, y));
    }
  }
  mask.rect = sf::IntRect(mask.rect.left + left, mask.rect.top + top, right - left, bottom - top);
  mask.drawn = true;
}

}  // namespace mv

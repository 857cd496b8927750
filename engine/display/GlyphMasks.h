// How much of each pixel a glyph covers, as the graphics card draws it: one
// mask per character, for a glyph whose origin lies on the corner of a whole
// pixel, drawn once through the card and kept, so that the CPU can lay glyphs
// on a picture with the very pixels that drawing them in the window gives.
#pragma once

#include <SFML/Graphics/Glyph.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/Text.hpp>
#include <SFML/System/Vector2.hpp>
#include <array>
#include <memory>
#include <vector>

namespace sf {
class Image;
class RenderTexture;
}  // namespace sf

namespace mv {

struct GlyphMask {
  // Relative to the glyph's origin: where the glyph may reach until the mask
  // is drawn, and then the least rectangle that holds its ink.
  sf::IntRect rect;
  // One byte a pixel of the rectangle, row by row: 0 leaves a pixel as it
  // was, 255 covers it.
  std::vector<unsigned char> coverage;
  bool drawn = false;
};

class GlyphMasks {
 public:
  GlyphMasks();
  ~GlyphMasks();

  // The text whose font, size and style every mask takes; forgets the masks
  // made so far. False, with a line in the log, when the card has no room to
  // draw glyphs of this size.
  bool setText(const sf::Text& text);

  // The pixels that a glyph with its origin at `origin` can touch, when it
  // hangs `baseline` pixels below that origin.
  static sf::IntRect reach(const sf::Glyph& glyph, float baseline, sf::Vector2f origin);

  // Null until the mask has been asked for and drawn.
  const GlyphMask* find(char ch) const;

  // Asks for a mask, unless it is drawn or asked for already; drawMissing
  // makes every one asked for since.
  void ask(char ch, const sf::Glyph& glyph);

  // Draws the masks asked for and reads them back.
  void drawMissing();

 private:
  // Draws as many of the wanted masks, from `first` on, as the canvas holds;
  // answers how many.
  std::size_t drawSome(std::size_t first);
  static void readMask(const sf::Image& drawn, sf::Vector2i corner, GlyphMask& mask);

  sf::Text text;
  float baseline = 0.0f;
  std::array<std::unique_ptr<GlyphMask>, 256> masks;
  std::vector<char> wanted;
  std::unique_ptr<sf::RenderTexture> canvas;
};

}  // namespace mv

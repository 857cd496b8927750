// The cells drawn since the window was last brought up to date, handed to
// the graphics card in one draw call. Each cell is an opaque background with
// a glyph on top, and a later cell paints over an earlier one: the batch
// keeps that picture exactly, whatever order and overlap the cells come in.
#pragma once

#include <SFML/Graphics/Color.hpp>
#include <SFML/Graphics/Glyph.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/Vertex.hpp>
#include <SFML/System/Vector2.hpp>
#include <cstdint>
#include <vector>

#include "BucketIndex.h"

namespace sf {
class RenderTarget;
class Texture;
class Transform;
}  // namespace sf

namespace mv {

class CellBatch {
 public:
  // Every background is `size` pixels and has `color`.
  void setBackground(sf::Vector2f size, sf::Color color);

  // One cell: the corner of its background, the origin of its glyph (the
  // baseline lies `baseline` pixels below it), the glyph or null for a blank,
  // its colour, and a rotation in degrees of both about their own corners.
  void add(sf::Vector2f background_at, sf::Vector2f glyph_at, float baseline,
           const sf::Glyph* glyph, sf::Color color, float rotation);

  // Draws the cells into `target`, glyphs from `glyphs`, and empties the
  // batch. `on_plain_background`: the target shows nothing but the
  // background colour, so backgrounds need not be drawn, only respected.
  void draw(sf::RenderTarget& target, const sf::Texture& glyphs, bool on_plain_background);

  bool empty() const;
  void clear();

 private:
  struct Cell {
    sf::Vector2f background_at;
    sf::Vector2f glyph_at;
    float baseline;
    bool has_glyph;
    sf::Glyph glyph;
    sf::Color color;
    float rotation;
  };

  void buildInOrder();
  void buildClipped();
  // Files the backgrounds by their place on a grid of cell-sized squares, so
  // that those over a glyph are found without looking at all. False when the
  // cells are spread too thinly for such an index.
  bool indexBackgrounds();
  std::size_t placeIndex(const Cell& cell) const;
  // Cuts from `pieces`, which start as `glyph`, what backgrounds after `index` cover.
  void clipByLaterBackgrounds(std::size_t index, const sf::FloatRect& glyph);
  void clip(const sf::FloatRect& cover);
  sf::FloatRect backgroundOf(const Cell& cell) const;
  void addGlyph(const Cell& cell, const sf::Transform& place);
  void addQuad(const sf::Transform& place, sf::FloatRect corners, sf::FloatRect texels,
               sf::Color color);

  sf::Vector2f cell_size;
  sf::Color background;
  bool any_rotated = false;
  std::vector<Cell> cells;
  std::vector<sf::Vertex> vertices;
  // Kept between frames so that clipping allocates nothing once warm.
  std::int64_t first_row = 0;
  std::int64_t first_column = 0;
  std::int64_t rows = 0;
  std::int64_t columns = 0;
  // Each place's backgrounds, in the order they were drawn.
  BucketIndex backgrounds_by_place;
  std::vector<sf::FloatRect> pieces;
  std::vector<sf::FloatRect> left_over;
};

}  // namespace mv

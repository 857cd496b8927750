#include "CellBatch.h"

#include <SFML/Graphics/RenderStates.hpp>
#include <SFML/Graphics/RenderTarget.hpp>
#include <SFML/Graphics/Transform.hpp>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace mv {

namespace {

// A glyph's texture is smoothed across its edge, so its quad reaches one
// pixel past the glyph on every side and in the texture alike.
constexpr float GLYPH_PADDING = 1.0f;

// The font's texture holds a white square at its corner. A background quad
// textured there keeps its colour whole, so backgrounds and glyphs share one
// draw call and paint over each other in the order they were drawn.
const sf::FloatRect WHITE_TEXELS(1.0f, 1.0f, 0.0f, 0.0f);

// Cells spread thinly over a wide area would need an index mostly of empty
// places; such batches draw every background instead of clipping.
constexpr std::int64_t MOST_PLACES_PER_CELL = 16;

// No window is this large: a cell further out than this can't be seen.
constexpr float FARTHEST_VISIBLE_PIXEL = 1.0e6f;

sf::FloatRect padded(sf::FloatRect rect) {
  return sf::FloatRect(rect.left - GLYPH_PADDING, rect.top - GLYPH_PADDING,
                       rect.width + 2 * GLYPH_PADDING, rect.height + 2 * GLYPH_PADDING);
}

// The row or column of the grid of cell-sized places that holds `pixel`.
std::int64_t placeOf(float pixel, float cell_extent) {
  return static_cast<std::int64_t>(std::floor(pixel / cell_extent));
}

float right(const sf::FloatRect& r) { return r.left + r.width; }

float bottom(const sf::FloatRect& r) { return r.top + r.height; }

sf::FloatRect fromEdges(float left, float top, float right_edge, float bottom_edge) {
  return sf::FloatRect(left, top, right_edge - left, bottom_edge - top);
}

// What is left of `piece` outside `cover`: up to four strips, appended to `out`.
void subtract(const sf::FloatRect& piece, const sf::FloatRect& cover,
              std::vector<sf::FloatRect>& out) {
  if (cover.left >= right(piece) || right(cover) <= piece.left || cover.top >= bottom(piece) ||
      bottom(cover) <= piece.top) {
    out.push_back(piece);
    return;
  }
  const float middle_top = std::max(piece.top, cover.top);
  const float middle_bottom = std::min(bottom(piece), bottom(cover));
  if (cover.top > piece.top) {
    out.push_back(fromEdges(piece.left, piece.top, right(piece), cover.top));
  }
  if (bottom(cover) < bottom(piece)) {
    out.push_back(fromEdges(piece.left, bottom(cover), right(piece), bottom(piece)));
  }
  if (cover.left > piece.left) {
    out.push_back(fromEdges(piece.left, middle_top, cover.left, middle_bottom));
  }
  if (right(cover) < right(piece)) {
    out.push_back(fromEdges(right(cover), middle_top, right(piece), middle_bottom));
  }
}

// The part of `texels` that shows on `piece`, a part of `whole`.
sf::FloatRect texelsOf(const sf::FloatRect& piece, const sf::FloatRect& whole,
                       const sf::FloatRect& texels) {
  const float x_scale = texels.width / whole.width;
  const float y_scale = texels.height / whole.height;
  return sf::FloatRect(texels.left + (piece.left - whole.left) * x_scale,
                       texels.top + (piece.top - whole.top) * y_scale, piece.width * x_scale,
                       piece.height * y_scale);
}

}  // namespace

void CellBatch::setBackground(sf::Vector2f size, sf::Color color) {
  cell_size = size;
  background = color;
}

void CellBatch::add(sf::Vector2f background_at, sf::Vector2f glyph_at, float baseline,
                    const sf::Glyph* glyph, sf::Color color, float rotation) {
  if (!(std::fabs(background_at.x) < FARTHEST_VISIBLE_PIXEL &&
        std::fabs(background_at.y) < FARTHEST_VISIBLE_PIXEL)) {
    return;
  }
  cells.push_back(Cell{background_at, glyph_at, baseline, glyph != nullptr,
                       glyph != nullptr ? *glyph : sf::Glyph(), color, rotation});
  any_rotated = any_rotated || rotation != 0.0f;
}

void CellBatch::draw(sf::RenderTarget& target, const sf::Texture& glyphs,
                     bool on_plain_background) {
  if (on_plain_background && !any_rotated && indexBackgrounds()) {
    buildClipped();
  } else {
    buildInOrder();
  }
  if (!vertices.empty()) {
    target.draw(vertices.data(), vertices.size(), sf::Triangles, sf::RenderStates(&glyphs));
  }
  clear();
}

bool CellBatch::empty() const { return cells.empty(); }

void CellBatch::clear() {
  cells.clear();
  vertices.clear();
  any_rotated = false;
}

// Background, then glyph, cell after cell: the picture as each cell alone makes it.
void CellBatch::buildInOrder() {
  for (const Cell& cell : cells) {
    sf::Transform place;
    place.translate(cell.background_at).rotate(cell.rotation);
    addQuad(place, sf::FloatRect(sf::Vector2f(), cell_size), WHITE_TEXELS, background);
    if (cell.has_glyph) {
      sf::Transform hang;
      hang.translate(cell.glyph_at).rotate(cell.rotation).translate(0.0f, cell.baseline);
      addGlyph(cell, hang);
    }
  }
}

// On a plain background a background only hides the ink of earlier cells.
// So the glyphs alone are drawn, each without the parts that a later
// background covers: the same pixels, at a fraction of the cost.
void CellBatch::buildClipped() {
  for (std::size_t index = 0; index < cells.size(); ++index) {
    const Cell& cell = cells[index];
    if (!cell.has_glyph) {
      continue;
    }
    sf::FloatRect glyph = padded(cell.glyph.bounds);
    const sf::FloatRect texels = padded(sf::FloatRect(cell.glyph.textureRect));
    glyph.left += cell.glyph_at.x;
    glyph.top += cell.glyph_at.y + cell.baseline;
    pieces.assign(1, glyph);
    clipByLaterBackgrounds(index, glyph);
    for (const sf::FloatRect& piece : pieces) {
      addQuad(sf::Transform::Identity, piece, texelsOf(piece, glyph, texels), cell.color);
    }
  }
}

bool CellBatch::indexBackgrounds() {
  if (cells.empty()) {
    return true;
  }
  std::int64_t last_row = first_row = placeOf(cells[0].background_at.y, cell_size.y);
  std::int64_t last_column = first_column = placeOf(cells[0].background_at.x, cell_size.x);
  for (const Cell& cell : cells) {
    const std::int64_t row = placeOf(cell.background_at.y, cell_size.y);
    const std::int64_t column = placeOf(cell.background_at.x, cell_size.x);
    first_row = std::min(first_row, row);
    last_row = std::max(last_row, row);
    first_column = std::min(first_column, column);
    last_column = std::max(last_column, column);
  }
  rows = last_row - first_row + 1;
  columns = last_column - first_column + 1;
  if (rows * columns > MOST_PLACES_PER_CELL * static_cast<std::int64_t>(cells.size())) {
    return false;
  }
  backgrounds_by_place.sort(static_cast<std::size_t>(rows * columns), [this](auto file) {
    for (std::size_t index = 0; index < cells.size(); ++index) {
      file(index, placeIndex(cells[index]));
    }
  });
  return true;
}

std::size_t CellBatch::placeIndex(const Cell& cell) const {
  const std::int64_t row = placeOf(cell.background_at.y, cell_size.y) - first_row;
  const std::int64_t column = placeOf(cell.background_at.x, cell_size.x) - first_column;
  return static_cast<std::size_t>(row * columns + column);
}

void CellBatch::clipByLaterBackgrounds(std::size_t index, const sf::FloatRect& glyph) {
  // A background that overlaps the glyph has its corner less than one cell before the glyph's.
  const std::int64_t top_row =
      std::max<std::int64_t>(placeOf(glyph.top - cell_size.y, cell_size.y) - first_row, 0);
  const std::int64_t bottom_row =
      std::min<std::int64_t>(placeOf(bottom(glyph), cell_size.y) - first_row, rows - 1);
  const std::int64_t left_column =
      std::max<std::int64_t>(placeOf(glyph.left - cell_size.x, cell_size.x) - first_column, 0);
  const std::int64_t right_column =
      std::min<std::int64_t>(placeOf(right(glyph), cell_size.x) - first_column, columns - 1);
  for (std::int64_t row = top_row; row <= bottom_row; ++row) {
    for (std::int64_t column = left_column; column <= right_column; ++column) {
      const std::size_t place = static_cast<std::size_t>(row * columns + column);
      backgrounds_by_place.forEachIn(place, [&](std::size_t later) {
        if (later > index) {
          clip(backgroundOf(cells[later]));
        }
      });
    }
  }
}

void CellBatch::clip(const sf::FloatRect& cover) {
  left_over.clear();
  for (const sf::FloatRect& piece : pieces) {
    subtract(piece, cover, left_over);
  }
  pieces.swap(left_over);
}

sf::FloatRect CellBatch::backgroundOf(const Cell& cell) const {
  return sf::FloatRect(cell.background_at, cell_size);
}

void CellBatch::addGlyph(const Cell& cell, const sf::Transform& place) {
  addQuad(place, padded(cell.glyph.bounds), padded(sf::FloatRect(cell.glyph.textureRect)),
          cell.color);
}

void CellBatch::addQuad(const sf::Transform& place, sf::FloatRect corners, sf::FloatRect texels,
                        sf::Color color) {
  const float texel_right = right(texels);
  const float texel_bottom = bottom(texels);
  const sf::Vertex top_left(place.transformPoint(corners.left, corners.top), color,
                            sf::Vector2f(texels.left, texels.top));
  const sf::Vertex top_right(place.transformPoint(right(corners), corners.top), color,
                             sf::Vector2f(texel_right, texels.top));
  const sf::Vertex bottom_left(place.transformPoint(corners.left, bottom(corners)), color,
                               sf::Vector2f(texels.left, texel_bottom));
  const sf::Vertex bottom_right(place.transformPoint(right(corners), bottom(corners)), color,
                                sf::Vector2f(texel_right, texel_bottom));
  vertices.insert(vertices.end(),
                  {top_left, top_right, bottom_left, bottom_left, top_right, bottom_right});
}

}  // namespace mv

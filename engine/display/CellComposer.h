// The cells of a frame laid on the CPU into one picture of the window's size,
// which the graphics card takes as one texture and draws in one go. Each cell
// is an opaque background with a glyph on top, a later cell paints over an
// earlier one, and glyphs overhang their cells, all as when each cell is drawn
// alone. The picture is kept from frame to frame: the window is cut into
// tiles, each tile remembers a digest of the cells that touch it, in their
// order, and only the tiles whose digest changed are laid again and uploaded.
#pragma once

#include <SFML/Graphics/Color.hpp>
#include <SFML/Graphics/Glyph.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/Text.hpp>
#include <SFML/Graphics/Vertex.hpp>
#include <SFML/System/Vector2.hpp>
#include <cstdint>
#include <memory>
#include <vector>

#include "BucketIndex.h"
#include "GlyphMasks.h"
#include "WindowPainter.h"

namespace sf {
class RenderTarget;
class Texture;
}  // namespace sf

namespace mv {

class CellComposer {
 public:
  CellComposer();
  ~CellComposer();

  // A picture of `size` pixels, all `background`, for cells whose backgrounds
  // are `cell_size` and whose glyphs are as `text` draws them. False, with a
  // line in the log, when the graphics card can't hold such a picture.
  bool create(sf::Vector2u size, sf::Vector2f cell_size, sf::Color background,
              const sf::Text& text);

  // One cell of this frame, in drawing order: the corner of its background,
  // the origin of its glyph, its character with the glyph or null for a
  // blank, and its colour. False when the cell must be drawn over the picture
  // instead: its glyph's origin is not on the corner of a whole pixel, or a
  // cell refused before touches its place. Those places stay refused for the
  // rest of the frame, so that what is drawn over the picture keeps its order.
  bool add(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch, const sf::Glyph* glyph,
           sf::Color color);

  // Brings the picture and its texture up to this frame's cells. Answers
  // whether they differ from the cells of the frame composed before.
  bool compose();

  // Draws the picture as composed last over the whole of `target`.
  void draw(sf::RenderTarget& target);

  // Puts into the window the tiles that the last compose changed, or the whole picture.
  void putChanged(WindowPainter& painter) const;
  void putAll(WindowPainter& painter) const;

  // Whether this frame has no cell on the picture.
  bool empty() const;

  // Forgets this frame's cells; the picture stays as it is.
  void startFrame();

 private:
  struct Cell {
    sf::IntRect background;
    sf::Vector2i glyph_at;
    char ch;
    const sf::Glyph* glyph;
    const GlyphMask* mask;
    sf::Color color;
    // The pixels that the cell can change, within the picture.
    sf::IntRect reach;
  };

  void digest(const Cell& cell);
  bool touchesRefused(const sf::IntRect& area) const;
  void refuse(const sf::IntRect& area);
  bool findDirtyTiles();
  void fetchMasks();
  void composeAll();
  void composeDirtyTiles();
  void indexCellsByDirtyTile();
  template <typename Visit>
  void forEachDirtyTileOfEachCell(Visit visit) const;
  void paintCell(const Cell& cell, const sf::IntRect& area);
  void fill(const sf::IntRect& area, std::uint32_t pixel);
  void blend(const GlyphMask& mask, sf::Vector2i at, const sf::IntRect& area, sf::Color color);
  // Each row's runs of neighbouring tiles that pass `test`, one area a run.
  template <typename Test, typename Visit>
  void forEachRunOfTiles(Test test, Visit visit) const;
  void uploadDirtyRows();
  void upload(const sf::IntRect& area);
  void buildQuads();
  void addQuad(const sf::IntRect& area);

  std::size_t tileIndex(int column, int row) const;
  sf::IntRect tileArea(int first_column, int row, int end_column) const;
  sf::IntRect tilesTouched(const sf::IntRect& area) const;

  GlyphMasks masks;
  sf::Vector2i size;
  sf::Vector2f cell_size;
  sf::Color background;
  std::uint32_t background_pixel = 0;
  float baseline = 0.0f;
  int tile_columns = 0;
  int tile_rows = 0;

  std::vector<Cell> cells;
  bool masks_missing = false;
  // The digest of each tile for this frame's cells, and for those the picture shows.
  std::vector<std::uint64_t> tile_digests;
  std::vector<std::uint64_t> shown_digests;
  std::vector<char> dirty;
  // The tiles that cells drawn over the picture touch in this frame.
  std::vector<char> refused;
  std::size_t dirty_count = 0;

  // Kept between frames so that composing allocates nothing once warm.
  // Each changed tile's cells, in drawing order.
  BucketIndex cells_by_tile;
  std::vector<std::uint32_t> pixels;
  std::vector<std::uint32_t> upload_buffer;
  std::unique_ptr<sf::Texture> texture;
  std::vector<sf::Vertex> quads;
  bool covers_all = false;
};

}  // namespace mv

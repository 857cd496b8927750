#include "CellComposer.h"

#include <SFML/Graphics/RenderStates.hpp>
#include <SFML/Graphics/RenderTarget.hpp>
#include <SFML/Graphics/Texture.hpp>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "LogManager.h"
#include "pixelsCovered.h"

namespace mv {

namespace {

// Tiles are squares of this many pixels: a cell touches a few of them.
constexpr int TILE = 16;

// The digest of a tile that no cell touches.
constexpr std::uint64_t EMPTY_TILE = 0x6a09e667f3bcc908ULL;

// No window is this large: a cell further out than this can't be seen.
constexpr float FARTHEST_VISIBLE_PIXEL = 1.0e6f;

// Stirs the bits of `x` so that every bit of the result hangs on all of them.
std::uint64_t stir(std::uint64_t x) {
  x ^= x >> 30;
  x *= 0xbf58476d1ce4e5b9ULL;
  x ^= x >> 27;
  x *= 0x94d049bb133111ebULL;
  return x ^ (x >> 31);
}

std::uint64_t packed(int a, int b, int c, int d) {
  const auto field = [](int value) { return static_cast<std::uint64_t>(value) & 0xffffU; };
  return field(a) | field(b) << 16 | field(c) << 32 | field(d) << 48;
}

std::uint32_t pixelOf(sf::Color color) {
  const unsigned char bytes[4] = {color.r, color.g, color.b, 255};
  std::uint32_t pixel;
  std::memcpy(&pixel, bytes, sizeof pixel);
  return pixel;
}

// times[a][v] is v scaled by a / 255 as the graphics card rounds it when it
// blends ink of coverage a over a pixel.
struct BlendTable {
  unsigned char times[256][256];
  BlendTable() {
    for (unsigned a = 0; a < 256; ++a) {
      for (unsigned v = 0; v < 256; ++v) {
        const unsigned product = a * v;
        times[a][v] = static_cast<unsigned char>((product + (product >> 8) + 0x80) >> 8);
      }
    }
  }
};

const BlendTable& blendTable() {
  static const BlendTable table;
  return table;
}

sf::IntRect enclosing(const sf::IntRect& one, const sf::IntRect& other) {
  const int left = std::min(one.left, other.left);
  const int top = std::min(one.top, other.top);
  const int right = std::max(one.left + one.width, other.left + other.width);
  const int bottom = std::max(one.top + one.height, other.top + other.height);
  return sf::IntRect(left, top, right - left, bottom - top);
}

// Where two rectangles overlap, into `common`; false when they don't.
bool overlap(const sf::IntRect& one, const sf::IntRect& other, sf::IntRect& common) {
  const int left = std::max(one.left, other.left);
  const int top = std::max(one.top, other.top);
  const int right = std::min(one.left + one.width, other.left + other.width);
  const int bottom = std::min(one.top + one.height, other.top + other.height);
  if (left >= right || top >= bottom) {
    return false;
  }
  common = sf::IntRect(left, top, right - left, bottom - top);
  return true;
}

bool visible(sf::Vector2f pixel) {
  return std::fabs(pixel.x) < FARTHEST_VISIBLE_PIXEL && std::fabs(pixel.y) < FARTHEST_VISIBLE_PIXEL;
}

}  // namespace

CellComposer::CellComposer() = default;

CellComposer::~CellComposer() = default;

bool CellComposer::create(sf::Vector2u picture_size, sf::Vector2f new_cell_size,
                          sf::Color new_background, const sf::Text& text) {
  size = sf::Vector2i(picture_size);
  cell_size = new_cell_size;
  background = new_background;
  background_pixel = pixelOf(background);
  baseline = static_cast<float>(text.getCharacterSize());
  if (!masks.setText(text)) {
    return false;
  }
  texture = std::make_unique<sf::Texture>();
  if (!texture->create(picture_size.x, picture_size.y)) {
    LogManager::getInstance().writeLog(
        "CellComposer::create(): Warning! No texture of %u by %u pixels; cells are drawn in "
        "batches instead.",
        picture_size.x, picture_size.y);
    texture.reset();
    return false;
  }
  tile_columns = (size.x + TILE - 1) / TILE;
  tile_rows = (size.y + TILE - 1) / TILE;
  const std::size_t tiles = static_cast<std::size_t>(tile_columns) * tile_rows;
  tile_digests.assign(tiles, EMPTY_TILE);
  shown_digests.assign(tiles, EMPTY_TILE);
  dirty.assign(tiles, 0);
  refused.assign(tiles, 0);
  pixels.assign(static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y),
                background_pixel);
  texture->update(reinterpret_cast<const sf::Uint8*>(pixels.data()));
  cells.clear();
  buildQuads();
  return true;
}

bool CellComposer::add(sf::Vector2f background_at, sf::Vector2f glyph_at, char ch,
                       const sf::Glyph* glyph, sf::Color color) {
  if (!visible(background_at) || !visible(glyph_at)) {
    return true;
  }
  Cell cell;
  cell.background = pixelsCovered(sf::FloatRect(background_at, cell_size));
  cell.glyph_at = sf::Vector2i(glyph_at);
  cell.ch = ch;
  cell.glyph = glyph;
  cell.mask = nullptr;
  cell.color = color;
  cell.reach = cell.background;
  if (glyph != nullptr) {
    cell.reach = enclosing(cell.reach, GlyphMasks::reach(*glyph, baseline, glyph_at));
  }
  if (!overlap(cell.reach, sf::IntRect(0, 0, size.x, size.y), cell.reach)) {
    return true;
  }
  // A mask holds a glyph drawn from the corner of a pixel; elsewhere the card
  // samples the font between its texels, which a mask can't foresee.
  const bool on_pixel_corner = glyph == nullptr || sf::Vector2f(cell.glyph_at) == glyph_at;
  if (!on_pixel_corner || touchesRefused(cell.reach)) {
    refuse(cell.reach);
    return false;
  }
  if (glyph != nullptr) {
    cell.mask = masks.find(ch);
    masks_missing = masks_missing || cell.mask == nullptr;
  }
  cells.push_back(cell);
  digest(cell);
  return true;
}

bool CellComposer::touchesRefused(const sf::IntRect& area) const {
  const sf::IntRect tiles = tilesTouched(area);
  for (int row = tiles.top; row < tiles.top + tiles.height; ++row) {
    for (int column = tiles.left; column < tiles.left + tiles.width; ++column) {
      if (refused[tileIndex(column, row)]) {
        return true;
      }
    }
  }
  return false;
}

void CellComposer::refuse(const sf::IntRect& area) {
  const sf::IntRect tiles = tilesTouched(area);
  for (int row = tiles.top; row < tiles.top + tiles.height; ++row) {
    for (int column = tiles.left; column < tiles.left + tiles.width; ++column) {
      refused[tileIndex(column, row)] = 1;
    }
  }
}

// Every tile that the cell touches takes the cell into its digest, in the
// order of drawing: the same cells in another order give another digest.
void CellComposer::digest(const Cell& cell) {
  const std::uint64_t key =
      stir(stir(stir(packed(cell.background.left, cell.background.top, cell.background.width,
                            cell.background.height)) +
                packed(cell.glyph_at.x, cell.glyph_at.y, static_cast<unsigned char>(cell.ch), 0)) +
           pixelOf(cell.color));
  const sf::IntRect tiles = tilesTouched(cell.reach);
  for (int row = tiles.top; row < tiles.top + tiles.height; ++row) {
    for (int column = tiles.left; column < tiles.left + tiles.width; ++column) {
      std::uint64_t& tile = tile_digests[tileIndex(column, row)];
      tile = stir(tile + key);
    }
  }
}

bool CellComposer::compose() {
  if (!findDirtyTiles()) {
    return false;
  }
  fetchMasks();
  if (2 * dirty_count > dirty.size()) {
    composeAll();
  } else {
    composeDirtyTiles();
  }
  uploadDirtyRows();
  shown_digests = tile_digests;
  buildQuads();
  return true;
}

bool CellComposer::findDirtyTiles() {
  dirty_count = 0;
  for (std::size_t tile = 0; tile < tile_digests.size(); ++tile) {
    dirty[tile] = tile_digests[tile] != shown_digests[tile];
    dirty_count += static_cast<std::size_t>(dirty[tile]);
  }
  return dirty_count > 0;
}

void CellComposer::fetchMasks() {
  if (!masks_missing) {
    return;
  }
  for (const Cell& cell : cells) {
    if (cell.glyph != nullptr && cell.mask == nullptr) {
      masks.ask(cell.ch, *cell.glyph);
    }
  }
  masks.drawMissing();
  for (Cell& cell : cells) {
    if (cell.glyph != nullptr && cell.mask == nullptr) {
      cell.mask = masks.find(cell.ch);
    }
  }
  masks_missing = false;
}

void CellComposer::composeAll() {
  const sf::IntRect whole(0, 0, size.x, size.y);
  fill(whole, background_pixel);
  for (const Cell& cell : cells) {
    paintCell(cell, whole);
  }
}

void CellComposer::composeDirtyTiles() {
  indexCellsByDirtyTile();
  for (std::size_t tile = 0; tile < dirty.size(); ++tile) {
    if (!dirty[tile]) {
      continue;
    }
    const int row = static_cast<int>(tile / static_cast<std::size_t>(tile_columns));
    const int column = static_cast<int>(tile % static_cast<std::size_t>(tile_columns));
    const sf::IntRect area = tileArea(column, row, column + 1);
    fill(area, background_pixel);
    cells_by_tile.forEachIn(tile, [&](std::size_t index) { paintCell(cells[index], area); });
  }
}

// Each changed tile lists the cells that touch it, in drawing order.
void CellComposer::indexCellsByDirtyTile() {
  cells_by_tile.sort(dirty.size(), [this](auto file) { forEachDirtyTileOfEachCell(file); });
}

template <typename Visit>
void CellComposer::forEachDirtyTileOfEachCell(Visit visit) const {
  for (std::size_t index = 0; index < cells.size(); ++index) {
    const sf::IntRect tiles = tilesTouched(cells[index].reach);
    for (int row = tiles.top; row < tiles.top + tiles.height; ++row) {
      for (int column = tiles.left; column < tiles.left + tiles.width; ++column) {
        const std::size_t tile = tileIndex(column, row);
        if (dirty[tile]) {
          visit(index, tile);
        }
      }
    }
  }
}

// The background covers what stood there, then the glyph's ink goes on top.
void CellComposer::paintCell(const Cell& cell, const sf::IntRect& area) {
  sf::IntRect covered;
  if (overlap(cell.background, area, covered)) {
    fill(covered, background_pixel);
  }
  if (cell.mask != nullptr) {
    blend(*cell.mask, cell.glyph_at + sf::Vector2i(cell.mask->rect.left, cell.mask->rect.top), area,
          cell.color);
  }
}

void CellComposer::fill(const sf::IntRect& area, std::uint32_t pixel) {
  for (int y = area.top; y < area.top + area.height; ++y) {
    std::uint32_t* row = pixels.data() + static_cast<std::size_t>(y) * size.x + area.left;
    std::fill(row, row + area.width, pixel);
  }
}

void CellComposer::blend(const GlyphMask& mask, sf::Vector2i at, const sf::IntRect& area,
                         sf::Color color) {
  sf::IntRect inked;
  if (!overlap(sf::IntRect(at.x, at.y, mask.rect.width, mask.rect.height), area, inked)) {
    return;
  }
  const BlendTable& table = blendTable();
  const std::uint32_t solid = pixelOf(color);
  for (int y = inked.top; y < inked.top + inked.height; ++y) {
    const unsigned char* coverage = mask.coverage.data() +
                                    static_cast<std::size_t>(y - at.y) * mask.rect.width +
                                    (inked.left - at.x);
    std::uint32_t* row = pixels.data() + static_cast<std::size_t>(y) * size.x + inked.left;
    for (int x = 0; x < inked.width; ++x) {
      const unsigned a = coverage[x];
      if (a == 0) {
        continue;
      }
      if (a == 255) {
        row[x] = solid;
        continue;
      }
      unsigned char* under = reinterpret_cast<unsigned char*>(row + x);
      const unsigned char* ink = table.times[a];
      const unsigned char* rest = table.times[255 - a];
      under[0] = static_cast<unsigned char>(ink[color.r] + rest[under[0]]);
      under[1] = static_cast<unsigned char>(ink[color.g] + rest[under[1]]);
      under[2] = static_cast<unsigned char>(ink[color.b] + rest[under[2]]);
    }
  }
}

// Each row of tiles sends the span from its first changed tile to its last;
// rows that send the same span in a row go together.
void CellComposer::uploadDirtyRows() {
  sf::IntRect pending;
  for (int row = 0; row < tile_rows; ++row) {
    int first = tile_columns;
    int last = -1;
    for (int column = 0; column < tile_columns; ++column) {
      if (dirty[tileIndex(column, row)]) {
        first = std::min(first, column);
        last = column;
      }
    }
    if (last < 0) {
      continue;
    }
    const sf::IntRect span = tileArea(first, row, last + 1);
    if (span.left == pending.left && span.width == pending.width &&
        span.top == pending.top + pending.height) {
      pending.height += span.height;
      continue;
    }
    upload(pending);
    pending = span;
  }
  upload(pending);
}

void CellComposer::upload(const sf::IntRect& area) {
  if (area.width <= 0 || area.height <= 0) {
    return;
  }
  const std::uint32_t* first =
      pixels.data() + static_cast<std::size_t>(area.top) * size.x + area.left;
  if (area.width != size.x) {
    upload_buffer.resize(static_cast<std::size_t>(area.width) * area.height);
    for (int y = 0; y < area.height; ++y) {
      std::copy(first + static_cast<std::size_t>(y) * size.x,
                first + static_cast<std::size_t>(y) * size.x + area.width,
                upload_buffer.begin() + static_cast<std::ptrdiff_t>(y) * area.width);
    }
    first = upload_buffer.data();
  }
  texture->update(reinterpret_cast<const sf::Uint8*>(first), static_cast<unsigned>(area.width),
                  static_cast<unsigned>(area.height), static_cast<unsigned>(area.left),
                  static_cast<unsigned>(area.top));
}

template <typename Test, typename Visit>
void CellComposer::forEachRunOfTiles(Test test, Visit visit) const {
  for (int row = 0; row < tile_rows; ++row) {
    for (int column = 0; column < tile_columns;) {
      if (!test(tileIndex(column, row))) {
        ++column;
        continue;
      }
      const int run_start = column;
      while (column < tile_columns && test(tileIndex(column, row))) {
        ++column;
      }
      visit(tileArea(run_start, row, column));
    }
  }
}

// The picture is drawn only where cells are; the rest of the window is cleared to the background.
void CellComposer::buildQuads() {
  quads.clear();
  covers_all =
      std::find(shown_digests.begin(), shown_digests.end(), EMPTY_TILE) == shown_digests.end();
  if (covers_all) {
    addQuad(sf::IntRect(0, 0, size.x, size.y));
    return;
  }
  forEachRunOfTiles([&](std::size_t tile) { return shown_digests[tile] != EMPTY_TILE; },
                    [&](const sf::IntRect& area) { addQuad(area); });
}

void CellComposer::addQuad(const sf::IntRect& area) {
  const float left = static_cast<float>(area.left);
  const float top = static_cast<float>(area.top);
  const float right = static_cast<float>(area.left + area.width);
  const float bottom = static_cast<float>(area.top + area.height);
  const sf::Vertex top_left(sf::Vector2f(left, top), sf::Vector2f(left, top));
  const sf::Vertex top_right(sf::Vector2f(right, top), sf::Vector2f(right, top));
  const sf::Vertex bottom_left(sf::Vector2f(left, bottom), sf::Vector2f(left, bottom));
  const sf::Vertex bottom_right(sf::Vector2f(right, bottom), sf::Vector2f(right, bottom));
  quads.insert(quads.end(),
               {top_left, top_right, bottom_left, bottom_left, top_right, bottom_right});
}

void CellComposer::draw(sf::RenderTarget& target) {
  if (!covers_all) {
    target.clear(background);
  }
  if (!quads.empty()) {
    target.draw(quads.data(), quads.size(), sf::Triangles,
                sf::RenderStates(sf::BlendNone, sf::Transform::Identity, texture.get(), nullptr));
  }
}

void CellComposer::putChanged(WindowPainter& painter) const {
  forEachRunOfTiles([&](std::size_t tile) { return dirty[tile] != 0; },
                    [&](const sf::IntRect& area) { painter.put(pixels.data(), size.x, area); });
}

void CellComposer::putAll(WindowPainter& painter) const {
  painter.put(pixels.data(), size.x, sf::IntRect(0, 0, size.x, size.y));
}

bool CellComposer::empty() const { return cells.empty(); }

void CellComposer::startFrame() {
  cells.clear();
  std::fill(tile_digests.begin(), tile_digests.end(), EMPTY_TILE);
  std::fill(refused.begin(), refused.end(), 0);
  masks_missing = false;
}

std::size_t CellComposer::tileIndex(int column, int row) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(tile_columns) +
         static_cast<std::size_t>(column);
}

sf::IntRect CellComposer::tileArea(int first_column, int row, int end_column) const {
  const int left = first_column * TILE;
  const int top = row * TILE;
  return sf::IntRect(left, top, std::min(end_column * TILE, size.x) - left,
                     std::min(top + TILE, size.y) - top);
}

sf::IntRect CellComposer::tilesTouched(const sf::IntRect& area) const {
  const int first_column = area.left / TILE;
  const int first_row = area.top / TILE;
  return sf::IntRect(first_column, first_row,
                     (area.left + area.width - 1) / TILE - first_column + 1,
                     (area.top + area.height - 1) / TILE - first_row + 1);
}

}  // namespace mv

#include "ScreenGrid.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "DisplayManager.h"

namespace mv {

bool ScreenCell::operator==(const ScreenCell& other) const {
  if (drawn != other.drawn) {
    return false;
  }
  return !drawn || (character == other.character && r == other.r && g == other.g &&
                    b == other.b && across == other.across && down == other.down);
}

bool ScreenCell::operator!=(const ScreenCell& other) const { return !(*this == other); }

ScreenGrid::ScreenGrid(int width, int height)
    : width(std::max(width, 0)),
      height(std::max(height, 0)),
      cells(static_cast<std::size_t>(this->width) * static_cast<std::size_t>(this->height)) {}

void ScreenGrid::recordCell(Vector position, char character, unsigned char r, unsigned char g,
                            unsigned char b) {
  const float x = std::floor(position.getX());
  const float y = std::floor(position.getY());
  if (!(x >= 0 && y >= 0 && x < static_cast<float>(width) && y < static_cast<float>(height))) {
    return;
  }
  const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x);
  cells[index] = ScreenCell{character, r, g, b, position.getX() - x, position.getY() - y, true};
}

void ScreenGrid::clear() { std::fill(cells.begin(), cells.end(), ScreenCell()); }

void ScreenGrid::swapCells(ScreenGrid& other) {
  std::swap(width, other.width);
  std::swap(height, other.height);
  cells.swap(other.cells);
}

int ScreenGrid::getWidth() const { return width; }

int ScreenGrid::getHeight() const { return height; }

const std::vector<ScreenCell>& ScreenGrid::getCells() const { return cells; }

bool ScreenGrid::setCell(std::size_t index, const ScreenCell& cell) {
  if (index >= cells.size()) {
    return false;
  }
  cells[index] = cell;
  return true;
}

void ScreenGrid::draw() const {
  DisplayManager& display = DisplayManager::getInstance();
  for (std::size_t i = 0; i < cells.size(); i++) {
    const ScreenCell& cell = cells[i];
    if (cell.drawn) {
      const auto column = static_cast<float>(i % static_cast<std::size_t>(width));
      const auto row = static_cast<float>(i / static_cast<std::size_t>(width));
      const Vector at(column + cell.across, row + cell.down);
      display.drawCharacter(at, cell.character, cell.r, cell.g, cell.b, 0.0f);
    }
  }
}

}  // namespace mv

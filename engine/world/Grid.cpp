#include "Grid.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <unordered_set>

#include "Config.h"
#include "LogManager.h"
#include "Object.h"
#include "WorldManager.h"
#include "geometry.h"

namespace mv {

namespace {

constexpr int DEFAULT_CELL_WIDTH = 20;
constexpr int DEFAULT_CELL_HEIGHT = 8;
// More cells than this are refused: a boundary that large is a mistake.
constexpr double MAX_CELLS = 16.0 * 1024 * 1024;

LogManager& log() { return LogManager::getInstance(); }

int cellSizeOrDefault(int configured, int fallback, const char* key) {
  if (configured > 0) {
    return configured;
  }
  log().writeLog("Grid::Grid(): Warning! %s %d is not a cell size. Using %d.", key, configured,
                 fallback);
  return fallback;
}

// Cells along one axis: the extent over the cell size, rounded up.
int cellCount(float extent, int cell_size) {
  const float count = std::ceil(extent / static_cast<float>(cell_size));
  return count > 0.0f ? static_cast<int>(std::min(count, 1.0e9f)) : 0;
}

// The index of the cell that holds `coordinate`, held to -1 below the grid and
// to `count` past it, so that far-off or undefined coordinates convert safely.
int cellIndex(float coordinate, int cell_size, int count) {
  const float index = std::floor(coordinate / static_cast<float>(cell_size));
  if (!(index >= 0.0f)) {
    return -1;
  }
  return index >= static_cast<float>(count) ? count : static_cast<int>(index);
}

}  // namespace

Grid::Grid()
    : started(false),
      m_num_cols(0),
      m_num_rows(0),
      m_cell_width(cellSizeOrDefault(Config::getInstance().getGridWidth(), DEFAULT_CELL_WIDTH,
                                     "grid_width")),
      m_cell_height(cellSizeOrDefault(Config::getInstance().getGridHeight(), DEFAULT_CELL_HEIGHT,
                                      "grid_height")) {}

int Grid::startUp() {
  if (started) {
    log().writeLog("Grid::startUp(): Warning! Grid allocated. Not proceeding.");
    return -1;
  }
  const Box boundary = WorldManager::getInstance().getBoundary();
  m_num_cols = cellCount(boundary.getHorizontal(), m_cell_width);
  m_num_rows = cellCount(boundary.getVertical(), m_cell_height);
  log().writeLog(5, "Grid::startUp(): m_num_cols %d, m_num_rows %d", m_num_cols, m_num_rows);
  if (static_cast<double>(m_num_cols) * m_num_rows > MAX_CELLS) {
    log().writeLog("Grid::startUp(): Error! Unable to allocate %d grid rows.", m_num_rows);
    m_num_cols = m_num_rows = 0;
    return -1;
  }
  try {
    m_grid.assign(static_cast<std::size_t>(m_num_cols) * m_num_rows, ObjectList());
  } catch (const std::bad_alloc&) {
    log().writeLog("Grid::startUp(): Error! Unable to allocate columns.");
    m_num_cols = m_num_rows = 0;
    return -1;
  }
  m_out_of_bounds.clear();
  started = true;
  return 0;
}

void Grid::shutDown() {
  std::vector<ObjectList>().swap(m_grid);
  m_num_cols = m_num_rows = 0;
  started = false;
  m_out_of_bounds.clear();
}

bool Grid::isStarted() const { return started; }

int Grid::getColumnCount() const { return m_num_cols; }

int Grid::getRowCount() const { return m_num_rows; }

CellSet Grid::getCells(const Object* o, Vector where) const {
  const Box box = getWorldBox(o, where);
  const Vector corner = box.getCorner();
  int x0 = cellIndex(corner.getX(), m_cell_width, m_num_cols);
  int y0 = cellIndex(corner.getY(), m_cell_height, m_num_rows);
  int x1 = cellIndex(corner.getX() + box.getHorizontal(), m_cell_width, m_num_cols);
  int y1 = cellIndex(corner.getY() + box.getVertical(), m_cell_height, m_num_rows);

  bool outside = false;
  if (y0 < 0) {
    y0 = 0;
    outside = true;
  }
  if (x0 < 0) {
    x0 = 0;
    outside = true;
  }
  if (y1 >= m_num_rows) {
    y1 = m_num_rows - 1;
    outside = true;
  }
  if (x1 >= m_num_cols) {
    x1 = m_num_cols - 1;
    outside = true;
  }

  CellSet cells;
  if (outside) {
    cells.push_back(OUT_OF_BOUNDS);
  }
  for (int y = y0; y <= y1; y++) {
    for (int x = x0; x <= x1; x++) {
      cells.push_back(Cell{x, y});
    }
  }
  return cells;
}

ObjectList* Grid::cellList(Cell cell) {
  return const_cast<ObjectList*>(static_cast<const Grid*>(this)->cellList(cell));
}

const ObjectList* Grid::cellList(Cell cell) const {
  if (cell == OUT_OF_BOUNDS) {
    return &m_out_of_bounds;
  }
  if (cell.x < 0 || cell.x >= m_num_cols || cell.y < 0 || cell.y >= m_num_rows) {
    return nullptr;
  }
  return &m_grid[static_cast<std::size_t>(cell.y) * m_num_cols + cell.x];
}

ObjectList Grid::objectsInCell(Cell cell) const {
  const ObjectList* list = cellList(cell);
  return list != nullptr ? *list : ObjectList();
}

bool Grid::canUse(const Object* o, const char* where) const {
  if (!started) {
    log().writeLog("Grid::%s(): Error! grid is NULL", where);
    return false;
  }
  if (o == nullptr) {
    log().writeLog("Grid::%s(): Error! Object is NULL", where);
    return false;
  }
  return true;
}

int Grid::insertObject(Object* o) {
  if (!canUse(o, "insertObject")) {
    return -1;
  }
  for (const Cell& cell : getCells(o, o->getPosition())) {
    cellList(cell)->insert(o);
  }
  return 0;
}

int Grid::removeObject(Object* o) {
  if (!canUse(o, "removeObject")) {
    return -1;
  }
  if (!o->isSolid() || !o->isActive()) {
    return 0;
  }
  for (const Cell& cell : getCells(o, o->getPosition())) {
    cellList(cell)->remove(o);
  }
  return 0;
}

int Grid::updatePosition(Object* o, Vector where) {
  if (!canUse(o, "updatePosition")) {
    return -1;
  }
  const CellSet old_cells = getCells(o, o->getPosition());
  const CellSet new_cells = getCells(o, where);

  CellSet left;
  std::set_difference(old_cells.begin(), old_cells.end(), new_cells.begin(), new_cells.end(),
                      std::back_inserter(left));
  for (const Cell& cell : left) {
    if (ObjectList* list = cellList(cell)) {
      list->remove(o);
    } else {
      log().writeLog("Error! remove Cell x,y out of bounds (%d, %d).", cell.x, cell.y);
    }
  }

  CellSet entered;
  std::set_difference(new_cells.begin(), new_cells.end(), old_cells.begin(), old_cells.end(),
                      std::back_inserter(entered));
  for (const Cell& cell : entered) {
    if (ObjectList* list = cellList(cell)) {
      list->insert(o);
    } else {
      log().writeLog("Error! insert Cell x,y out of bounds [%d, %d].", cell.x, cell.y);
    }
  }
  return 0;
}

ObjectList Grid::getCollisions(const Object* o, Vector where) const {
  ObjectList result;
  if (!canUse(o, "getCollisions")) {
    return result;
  }
  // An object spanning several cells is met once per cell: keep the first
  // meeting. Within one cell every object is listed once, so a single cell
  // needs no check, and a hash set keeps crowded queries linear.
  const CellSet cells = getCells(o, where);
  std::vector<Object*> candidates;
  std::unordered_set<const Object*> seen;
  for (const Cell& cell : cells) {
    const ObjectList& list = *cellList(cell);
    for (int i = 0; i < list.getCount(); i++) {
      if (cells.size() == 1 || seen.insert(list[i]).second) {
        candidates.push_back(list[i]);
      }
    }
  }
  const Box box = getWorldBox(o, where);
  for (Object* candidate : candidates) {
    if (candidate != o && boxIntersectsBox(box, getWorldBox(candidate))) {
      result.insert(candidate);
    }
  }
  return result;
}

}  // namespace mv

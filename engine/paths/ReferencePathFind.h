// The path search in its plainest form, kept as the measure of the engine's
// own: the open and closed cells stand in arrays in the order they came, and
// every question about them walks the whole array. It expands the same cells
// in the same order and finds the same paths, only more slowly, as tests and
// the benchmark check.
#pragma once

#include <vector>

#include "PathFind.h"

namespace mv {

class ReferencePathFind : public PathFind {
 public:
  ReferencePathFind(Object* object, Vector goal, Object* target = nullptr);

 protected:
  Cell takeBestOpenCell() override;
  void close(Cell c) override;
  bool isClosed(Cell c) const override;
  bool isOpen(Cell c) const override;
  void discovered(Cell c) override;
  void reached(Cell c) override;
  bool anyOpen() const override;
  // Asks the world every time.
  bool blockedAt(int x, int y) override;

 private:
  // Found and not yet expanded, in order of discovery.
  std::vector<Cell> open_list;
  std::vector<Cell> closed_list;
};

}  // namespace mv

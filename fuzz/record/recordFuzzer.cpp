// Feeds any bytes to the readers of an object's record, as a peer on a network
// might send them: the first byte picks a plain object, a view object or a
// button, the rest is the record. Whatever a reader makes of it must leave an
// object the world can run, and a record written of that object must read back.
// The object then stands as a HARD wall in a small world, where the engine's
// path search and the plain one must find the same way past it; it moves for
// a hundred updates, its position a number throughout, and they search again.
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Attribute.h"
#include "Button.h"
#include "PathFind.h"
#include "ReferencePathFind.h"
#include "ResourceManager.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "quietEngine.h"

namespace {

class FuzzButton : public mv::Button {
 public:
  void onClick() override {}
};

mv::Object* makeObject(std::uint8_t kind) {
  switch (kind % 3) {
    case 0:
      return new mv::Object;
    case 1:
      return new mv::ViewObject;
    default:
      return new FuzzButton;
  }
}

// A sprite for records to name, so that the found sprite's path is searched too.
void loadShipSprite() {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("morvane-record-fuzz-" + std::to_string(getpid()));
  std::ofstream(file) << "3\n2\n1\n0\nred\n<>\n[]\n{}\n";
  mv::ResourceManager::getInstance().loadSprite(file.string(), "ship");
  std::filesystem::remove(file);
}

const mv::Box SMALL_WORLD(mv::Vector(0, 0), 16, 10);
const mv::Vector FAR_CORNER(14, 8);
constexpr int UPDATES = 100;

void requireReadBack(std::uint8_t kind, mv::Object* read) {
  // An earlier input's record may have pushed the id counter past what records
  // carry; such an id is this process's own, and it stays out of the record.
  read->setModified(read->getId() <= mv::Object::MAX_RECORD_ID ? 0xffffffffu
                                                               : 0xffffffffu & ~mv::ID);
  std::stringstream record;
  if (read->serialize(record) != 0) {
    std::abort();
  }
  mv::Object* copy = makeObject(kind);
  if (copy->deserialize(record) != 0) {
    std::abort();
  }
  mv::WorldManager::getInstance().markForDelete(copy);
}

// A walker crosses the world from (1,1); both searches must expand the same
// cells and end alike.
void requireSearchesAgreeAround(mv::Object* wall) {
  wall->setActive(true);
  wall->setSolidness(mv::HARD);
  auto* walker = new mv::Object;
  walker->setSolidness(mv::SPECTRAL);
  {
    mv::PathFind fast(walker, FAR_CORNER);
    mv::ReferencePathFind reference(walker, FAR_CORNER);
    int fast_result;
    int reference_result;
    do {
      fast_result = fast.cycleOnce();
      reference_result = reference.cycleOnce();
      if (fast_result != reference_result ||
          !(fast.getLastExpanded() == reference.getLastExpanded())) {
        std::abort();
      }
    } while (fast_result == 1);
    if (fast.getPath().getNodes() != reference.getPath().getNodes()) {
      std::abort();
    }
  }
  mv::WorldManager::getInstance().markForDelete(walker);
}

void requireFinitePositionsFor(mv::Object* read) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  for (int update = 0; update < UPDATES; update++) {
    world.update();
    const mv::Vector position = read->getPosition();
    if (!std::isfinite(position.getX()) || !std::isfinite(position.getY())) {
      std::abort();
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  mv::WorldManager::getInstance().startUp();
  mv::WorldManager::getInstance().setBoundary(SMALL_WORLD);
  mv::ResourceManager::getInstance().startUp();
  loadShipSprite();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  mv::Object* read = makeObject(data[0]);
  std::stringstream record(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  if (read->deserialize(record) == 0) {
    requireReadBack(data[0], read);
  }
  mv::WorldManager& world = mv::WorldManager::getInstance();
  requireSearchesAgreeAround(read);
  requireFinitePositionsFor(read);
  requireSearchesAgreeAround(read);
  world.draw();
  world.markForDelete(read);
  world.update();
  return 0;
}

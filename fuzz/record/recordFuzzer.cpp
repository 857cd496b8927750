// Feeds any bytes to the readers of an object's record, as a peer on a network
// might send them: the first byte picks a plain object, a view object or a
// button, the rest is the record. Whatever a reader makes of it must leave an
// object the world can run, and a record written of that object must read back.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Button.h"
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

void requireReadBack(std::uint8_t kind, mv::Object* read) {
  read->setModified(0xffffffffu);
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

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  mv::WorldManager::getInstance().startUp();
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
  world.update();
  world.draw();
  world.markForDelete(read);
  world.update();
  return 0;
}

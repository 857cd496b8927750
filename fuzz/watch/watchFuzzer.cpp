// Feeds any bytes, cut into pieces of any size, to a watcher's side of a
// watched game: the reader of the host's messages and what each message does
// to a screen of any size. Nothing may be drawn outside the screen, and the
// screen keeps its size whatever a host sends.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "Config.h"
#include "DisplayManager.h"
#include "MessageReader.h"
#include "ScreenGrid.h"
#include "quietEngine.h"
#include "watchMessages.h"

namespace {

constexpr std::size_t LONGEST_PIECE = 300;
constexpr int LARGEST_SIDE = 60;

void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// The display's cells as the watcher draws them: each must fall on the screen.
class BoundsCheck : public mv::CellRecorder {
 public:
  void recordCell(mv::Vector position, char, unsigned char, unsigned char, unsigned char) override {
    require(position.getX() >= 0 && position.getX() < static_cast<float>(columns) &&
            position.getY() >= 0 && position.getY() < static_cast<float>(rows));
  }
  int columns = 0;
  int rows = 0;
};

BoundsCheck bounds;

void takeMessage(const mv::Message& message, mv::ScreenGrid& screen) {
  int step = 0;
  mv::WatchedScreen hello;
  mv::WatchedSound sound;
  if (message.label == mv::WATCH_SCREEN) {
    mv::applyScreenChanges(message.payload, screen, step);
  } else if (message.label == mv::WATCH_HELLO && mv::readHelloToWatcher(message.payload, hello)) {
    require(hello.columns >= 1 && hello.columns <= mv::MOST_WATCHED_CELLS);
    require(hello.rows >= 1 && hello.rows <= mv::MOST_WATCHED_CELLS);
  } else if (message.label == mv::WATCH_SOUND && mv::readSoundToWatcher(message.payload, sound)) {
    require(sound.action >= mv::AUDIO_STOPPED && sound.action <= mv::AUDIO_LOOPED);
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  mv::Config::getInstance().loadConfig("headless:true,");
  mv::DisplayManager::getInstance().startUp();
  mv::DisplayManager::getInstance().addCellRecorder(&bounds);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  bounds.columns = input.ConsumeIntegralInRange<int>(1, LARGEST_SIDE);
  bounds.rows = input.ConsumeIntegralInRange<int>(1, LARGEST_SIDE);
  mv::ScreenGrid screen(bounds.columns, bounds.rows);
  mv::MessageReader reader(mv::WATCH_LABELS);
  while (input.remaining_bytes() > 0) {
    const std::string piece =
        input.ConsumeBytesAsString(input.ConsumeIntegralInRange<std::size_t>(0, LONGEST_PIECE));
    reader.add(piece.data(), piece.size());
    mv::Message message;
    while (reader.next(message) == mv::MessageReader::COMPLETE) {
      takeMessage(message, screen);
      require(screen.getWidth() == bounds.columns && screen.getHeight() == bounds.rows);
      require(screen.getCells().size() ==
              static_cast<std::size_t>(bounds.columns) * static_cast<std::size_t>(bounds.rows));
      screen.draw();
    }
  }
  return 0;
}

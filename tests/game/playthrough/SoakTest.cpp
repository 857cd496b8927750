// A long play through many rooms and several games, as fast as the engine
// goes: rooms are passed, upgrades taken, games end by death or Escape and
// begin again, and nothing goes wrong on the way. Memory is measured at the
// start of each game; LeakSanitizer watches the rest in the sanitized build.
// Its beginning played again with the same settings, the same fixed clock and
// the same player must be the same game: the world's state is compared every
// hundredth frame, and a difference points at something that reads
// uninitialised memory, an address or the clock.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "Enemy.h"
#include "GameManager.h"
#include "Hero.h"
#include "InputManager.h"
#include "ObjectList.h"
#include "ScratchDirectory.h"
#include "WorldManager.h"
#include "game.h"
#include "logLines.h"
#include "session.h"

// In the sanitized build freed memory waits in a quarantine before it is
// handed out again, so that a late use of it is caught. At its default of
// 256 MB the quarantine would swell the resident memory of a long play far
// beyond anything the game holds, and hide a real growth; 16 MB still holds
// what many hundreds of frames free, an end screen's worth and more.
#if defined(__SANITIZE_ADDRESS__)
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=16"; }
#endif

namespace {

constexpr int FRAMES = 50000;
constexpr unsigned PLAYER_SEED = 3;
// Far above the drift of a sanitizer's allocator, far below what the objects,
// sprites or sounds of every game would add up to if they were kept.
constexpr long MEMORY_GROWTH_KB = 32 * 1024;
constexpr int REPLAYED_FRAMES = 3000;
constexpr int CHECK_EVERY = 100;
// The engine headless with no sleep between frames, with its random seed and
// the game's clock fixed, so that a play can be repeated exactly.
const char* const SETTINGS = "headless:true,frame_time:0,random_seed:4242,";
constexpr std::time_t GAME_SECONDS = 1700000000;

// Plays `frames` frames with a player seeded with `seed`, from the start
// screen on, and stops the engine again; `at_frame` runs at the start of
// every frame, before the player looks. Answers the games played.
std::vector<GameRecord> play(
    int frames, unsigned seed,
    const std::function<void(int frame, const AutoPlayer& player)>& at_frame) {
  fixGameSeconds(GAME_SECONDS);
  if (startRustline() != 0) {
    ADD_FAILURE() << "the engine did not start";
    return {};
  }
  AutoPlayer player(seed);
  player.setFrameListener([&](int frame) {
    at_frame(frame, player);
    if (frame + 1 == frames) {
      mv::GameManager::getInstance().setGameOver();
    }
  });
  mv::InputManager::getInstance().setInputSource(&player);
  mv::GameManager::getInstance().run();
  stopRustline();
  fixGameSeconds(-1);
  return player.getGames();
}

// Every object's type, position and velocity, and the health of the hero and
// of each enemy, in the world's own order, the numbers written exactly.
std::string describeWorld() {
  std::ostringstream state;
  state << std::hexfloat;
  const mv::ObjectList everything = mv::WorldManager::getInstance().getAllObjects(true);
  for (int i = 0; i < everything.getCount(); i++) {
    const mv::Object* o = everything[i];
    state << o->getType() << " at " << o->getPosition().getX() << "," << o->getPosition().getY()
          << " going " << o->getVelocity().getX() << "," << o->getVelocity().getY();
    if (o->getType() == "Hero") {
      state << " health " << static_cast<const Hero*>(o)->getStats().health;
    } else if (o->getType() == "Enemy") {
      state << " health " << static_cast<const Enemy*>(o)->getHealth();
    }
    state << "\n";
  }
  return state.str();
}

// Writes down the world's state in the frames that both plays compare.
void lookAt(int frame, std::vector<std::string>& states) {
  if (frame < REPLAYED_FRAMES && frame % CHECK_EVERY == 0) {
    states.push_back(describeWorld());
  }
}

}  // namespace

TEST(Soak, PlaysManyGamesWithoutAnErrorOrGrowingMemoryAndTheSameGameAgain) {
  // A scratch copy of the game's working directory, with the game's own sprites
  // and sounds one level up.
  mv_test::ScratchDirectory scratch;
  const std::filesystem::path folder =
      makePlayFolder(scratch.path(), RUSTLINE_SOURCE_DIR, SETTINGS, {});
  ASSERT_FALSE(folder.empty()) << "cannot make the game's working directory in " << scratch.path();
  std::filesystem::current_path(folder);
  std::vector<long> memory_at_start;
  std::vector<std::string> states;
  const std::vector<GameRecord> games =
      play(FRAMES, PLAYER_SEED, [&](int frame, const AutoPlayer& player) {
        lookAt(frame, states);
        if (player.getGames().size() > memory_at_start.size()) {
          memory_at_start.push_back(residentKilobytes());
        }
      });

  ASSERT_GE(games.size(), 5u) << "games end and begin again";
  const GameRecord& furthest = *std::max_element(
      games.begin(), games.end(),
      [](const GameRecord& a, const GameRecord& b) { return a.rooms_reached < b.rooms_reached; });
  EXPECT_GE(furthest.rooms_reached, 6) << "rooms are passed, up to enemies of double health";
  EXPECT_GE(furthest.upgrades_taken, 2);

  const std::string log = mv_test::readFile("morvane.log");
  EXPECT_THAT(mv_test::logMessages(log), testing::Each(testing::Not(testing::HasSubstr("Error!"))));
  EXPECT_TRUE(mv_test::hasMessage(log, "** Game engine stopped **"));

  ASSERT_GE(memory_at_start.size(), 3u);
  // The first game grows what every later one reuses.
  const long settled = memory_at_start[1];
  for (std::size_t i = 2; i < memory_at_start.size(); i++) {
    EXPECT_LT(memory_at_start[i] - settled, MEMORY_GROWTH_KB) << "at the start of game " << i + 1;
  }

  std::vector<std::string> replayed;
  play(REPLAYED_FRAMES, PLAYER_SEED,
       [&](int frame, const AutoPlayer&) { lookAt(frame, replayed); });
  ASSERT_EQ(replayed.size(), states.size());
  for (std::size_t i = 0; i < states.size(); i++) {
    ASSERT_EQ(replayed[i], states[i]) << "the plays part by frame " << i * CHECK_EVERY;
  }
}

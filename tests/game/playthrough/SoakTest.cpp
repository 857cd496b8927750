// A long play through many rooms and several games, as fast as the engine
// goes: rooms are passed, upgrades taken, games end by death or Escape and
// begin again, and nothing goes wrong on the way. Memory is measured at the
// start of each game; LeakSanitizer watches the rest in the sanitized build.
// Its beginning played again with the same settings, the same fixed clock and
// the same player must be the same game: the world's state is compared every
// hundredth frame, and a difference points at something that reads
// uninitialised memory, an address or the clock.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "Enemy.h"
#include "Hero.h"
#include "ObjectList.h"
#include "WorldManager.h"
#include "logLines.h"
#include "playthrough.h"
#include "session.h"

namespace {

constexpr int FRAMES = 50000;
constexpr unsigned PLAYER_SEED = 3;
// Far above the drift of a sanitizer's allocator, far below what the objects,
// sprites or sounds of every game would add up to if they were kept.
constexpr long MEMORY_GROWTH_KB = 32 * 1024;
constexpr int REPLAYED_FRAMES = 3000;
constexpr int CHECK_EVERY = 100;

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

void printGames(const std::vector<GameRecord>& games, const std::vector<long>& memory) {
  for (std::size_t i = 0; i < games.size(); i++) {
    std::printf("game %zu: %d frames, room %d, %d upgrades, %s, %ld kB resident at its start\n",
                i + 1, games[i].last_frame - games[i].first_frame, games[i].rooms_reached,
                games[i].upgrades_taken,
                !games[i].over      ? "going on"
                : games[i].given_up ? "given up"
                                    : "died",
                i < memory.size() ? memory[i] : -1L);
  }
}

}  // namespace

TEST(Soak, PlaysManyGamesWithoutAnErrorOrGrowingMemoryAndTheSameGameAgain) {
  PlaythroughFolder folder;
  std::vector<long> memory_at_start;
  std::vector<std::string> states;
  const auto start = std::chrono::steady_clock::now();
  const Playthrough playthrough =
      play(FRAMES, PLAYER_SEED, [&](int frame, const AutoPlayer& player) {
        lookAt(frame, states);
        if (player.getGames().size() > memory_at_start.size()) {
          memory_at_start.push_back(residentKilobytes());
        }
      });
  const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
  std::printf("%d frames in %.1f s, %.0f frames per second\n", FRAMES, spent.count(),
              FRAMES / spent.count());
  const std::vector<GameRecord>& games = playthrough.games;
  printGames(games, memory_at_start);

  ASSERT_GE(games.size(), 5u) << "games end and begin again";
  const GameRecord& furthest = *std::max_element(
      games.begin(), games.end(),
      [](const GameRecord& a, const GameRecord& b) { return a.rooms_reached < b.rooms_reached; });
  EXPECT_GE(furthest.rooms_reached, 6) << "rooms are passed, up to enemies of double health";
  EXPECT_GE(furthest.upgrades_taken, 2);

  for (const std::string& message : mv_test::logMessages(playthrough.log)) {
    EXPECT_EQ(message.find("Error!"), std::string::npos) << message;
  }
  EXPECT_TRUE(mv_test::hasMessage(playthrough.log, "** Game engine stopped **"));

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

// A long play through many rooms and several games, as fast as the engine
// goes: rooms are passed, upgrades taken, games end by death or Escape and
// begin again, and nothing goes wrong on the way. Memory is measured at the
// start of each game; LeakSanitizer watches the rest in the sanitized build.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "logLines.h"
#include "playthrough.h"
#include "session.h"

namespace {

constexpr int FRAMES = 50000;
constexpr unsigned PLAYER_SEED = 3;
// Far above the drift of a sanitizer's allocator, far below what the objects,
// sprites or sounds of every game would add up to if they were kept.
constexpr long MEMORY_GROWTH_KB = 32 * 1024;

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

TEST(Soak, PlaysManyGamesWithoutAnErrorOrGrowingMemory) {
  PlaythroughFolder folder;
  std::vector<long> memory_at_start;
  const auto start = std::chrono::steady_clock::now();
  const Playthrough playthrough = play(FRAMES, PLAYER_SEED, [&](int, const AutoPlayer& player) {
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
}

// Lets our own player play Rustline headless, as fast as the engine goes, and
// prints for each game the rooms reached, the upgrades taken, how it ended and
// the resident memory at its start; then the frames per second.
//
//   rustline_autoplay [working directory] [frames] [seed]
//   build/tools/autoplayer/rustline_autoplay play 20000 7
//
// The working directory is the game's, with Sprites/ and Sounds/ one level
// up; the log goes to its morvane.log. Its settings are used with headless
// mode, a frame time of 0 and the seed as random seed put in front, and the
// game's clock stands still at the seed: one seed always plays the same games.
// Sounds go to OpenAL's null device unless ALSOFT_DRIVERS names another.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "GameManager.h"
#include "InputManager.h"
#include "arguments.h"
#include "game.h"
#include "session.h"

namespace {

struct Arguments {
  std::string directory = ".";
  int frames = 20000;
  int seed = 1;
};

bool readArguments(int argc, char** argv, Arguments& arguments) {
  if (argc > 4) {
    std::fprintf(stderr, "rustline_autoplay: at most three arguments\n");
    return false;
  }
  if (argc > 1) {
    arguments.directory = argv[1];
  }
  if (argc > 2 && !readWholeNumber(argv[2], 1, arguments.frames)) {
    std::fprintf(stderr, "rustline_autoplay: frames must be a whole number from 1, not '%s'\n",
                 argv[2]);
    return false;
  }
  if (argc > 3 && !readWholeNumber(argv[3], 1, arguments.seed)) {
    std::fprintf(stderr, "rustline_autoplay: the seed must be a whole number from 1, not '%s'\n",
                 argv[3]);
    return false;
  }
  return true;
}

void printGames(const std::vector<GameRecord>& games, const std::vector<long>& memory) {
  for (std::size_t i = 0; i < games.size(); i++) {
    const GameRecord& game = games[i];
    const char* ending = !game.over ? "still going" : game.given_up ? "given up" : "died";
    std::printf("game %zu: frames %d to %d, reached room %d, %d upgrades, health %d, %s, ", i + 1,
                game.first_frame, game.last_frame, game.rooms_reached, game.upgrades_taken,
                game.health, ending);
    std::printf("%ld kB at its start\n", i < memory.size() ? memory[i] : -1L);
  }
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  if (!readArguments(argc, argv, arguments)) {
    std::fprintf(stderr, "usage: rustline_autoplay [working directory] [frames] [seed]\n");
    return 2;
  }
  std::error_code failed;
  std::filesystem::current_path(arguments.directory, failed);
  if (failed) {
    std::fprintf(stderr, "rustline_autoplay: can't work in '%s': %s\n", arguments.directory.c_str(),
                 failed.message().c_str());
    return 2;
  }
  const std::filesystem::path config = std::filesystem::temp_directory_path() /
                                       ("rustline-autoplay-" + std::to_string(getpid()) + ".txt");
  std::ofstream(config) << configWith(
      "headless:true,frame_time:0,random_seed:" + std::to_string(arguments.seed) + ",",
      "mv-config.txt");
  setenv("MORVANE_CONFIG", config.c_str(), 1);
  // Headless, nobody listens; and without a sound device the music's stream
  // would spin and flood standard error.
  setenv("ALSOFT_DRIVERS", "null", 0);
  fixGameSeconds(arguments.seed);

  if (startRustline() != 0) {
    std::fprintf(stderr, "rustline_autoplay: the engine did not start; see morvane.log\n");
    std::filesystem::remove(config, failed);
    return 1;
  }
  AutoPlayer player(static_cast<unsigned>(arguments.seed));
  std::vector<long> memory_at_start;
  player.setFrameListener([&](int frame) {
    if (player.getGames().size() > memory_at_start.size()) {
      memory_at_start.push_back(residentKilobytes());
    }
    if (frame + 1 == arguments.frames) {
      mv::GameManager::getInstance().setGameOver();
    }
  });
  mv::InputManager::getInstance().setInputSource(&player);
  const auto start = std::chrono::steady_clock::now();
  mv::GameManager::getInstance().run();
  const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
  stopRustline();
  std::filesystem::remove(config, failed);

  printGames(player.getGames(), memory_at_start);
  std::printf(
      "%d frames in %.1f s: %.0f frames per second; %zu games; %ld kB resident at the end\n",
      player.getFrameCount(), spent.count(), player.getFrameCount() / spent.count(),
      player.getGames().size(), residentKilobytes());
  return 0;
}

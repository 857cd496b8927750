#include "playthrough.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "GameManager.h"
#include "InputManager.h"
#include "game.h"
#include "session.h"

namespace {

const char* const SETTINGS = "headless:true,frame_time:0,random_seed:4242,";
constexpr std::time_t GAME_SECONDS = 1700000000;

}  // namespace

PlaythroughFolder::PlaythroughFolder() {
  const std::filesystem::path play =
      makePlayFolder(scratch.path(), RUSTLINE_SOURCE_DIR, SETTINGS, {});
  EXPECT_FALSE(play.empty()) << "cannot make the game's working directory in " << scratch.path();
  std::filesystem::current_path(play);
}

Playthrough play(int frames, unsigned seed,
                 const std::function<void(int frame, const AutoPlayer& player)>& at_frame) {
  fixGameSeconds(GAME_SECONDS);
  Playthrough playthrough;
  if (startRustline() != 0) {
    ADD_FAILURE() << "the engine did not start";
    playthrough.log = mv_test::readFile("morvane.log");
    return playthrough;
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
  playthrough.games = player.getGames();
  playthrough.log = mv_test::readFile("morvane.log");
  return playthrough;
}

// Rustline's entry: starts the engine, plays the splash run, loads the game's
// files, shows the start screen and runs until the player quits.
//
//     rustline                   plays
//     rustline --host [PORT]     plays, and lets others watch (port 7171 unless given)
//     rustline --watch HOST[:PORT]   watches a game that another plays
#include <cstdio>
#include <cstdlib>
#include <string>

#include "GameManager.h"
#include "GameStart.h"
#include "LogManager.h"
#include "NetworkManager.h"
#include "ScreenMirror.h"
#include "Splash.h"
#include "WatchView.h"
#include "game.h"
#include "watchMessages.h"

namespace {

int usage() {
  std::fprintf(stderr, "usage: rustline [--host [PORT] | --watch HOST[:PORT]]\n");
  return 2;
}

// A port named on the command line: 1 to 65535, or -1.
int portOf(const std::string& text) {
  std::string host;
  int port = -1;
  return mv::parseWatchAddress("any:" + text, host, port) ? port : -1;
}

// Lets anyone who reaches this machine watch, and tells the player how.
void letOthersWatch(int port) {
  if (mv::ScreenMirror::getInstance().start(port, mv::ANY_ADDRESS) == 0) {
    std::printf("Others can watch this game with: rustline --watch THIS-MACHINE:%d\n", port);
  } else {
    std::fprintf(stderr, "rustline: nobody can watch: port %d can't be had; see the log\n", port);
  }
}

int play(int watch_port) {
  mv::GameManager& game_manager = mv::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game_manager.shutDown();
    return 0;
  }
  if (watch_port > 0) {
    letOthersWatch(watch_port);
  }
  setGameBoundary();
  mv::splash();
  loadResources();
  new GameStart;
  game_manager.run();
  game_manager.shutDown();
  return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::string first = argc > 1 ? argv[1] : "";
  if (argc == 1) {
    return play(0);
  }
  if (first == "--host" && argc <= 3) {
    const int port = argc == 3 ? portOf(argv[2]) : mv::DEFAULT_WATCH_PORT;
    return port > 0 ? play(port) : usage();
  }
  std::string host;
  int port = 0;
  if (first == "--watch" && argc == 3 && mv::parseWatchAddress(argv[2], host, port)) {
    // The watcher keeps a log of its own beside the player's.
    setenv("MORVANE_LOG", "morvane-watch.log", 0);
    return mv::watchGame(host, port, loadResources);
  }
  return usage();
}

// Rustline's entry: starts the engine, plays the splash run, loads the game's
// files, shows the start screen and runs until the player quits.
#include "GameManager.h"
#include "GameStart.h"
#include "LogManager.h"
#include "Splash.h"
#include "WorldManager.h"
#include "game.h"

namespace {

// The world reaches past the right edge of the window, where only scenery goes.
constexpr float WORLD_WIDTH = 200;
constexpr float WORLD_HEIGHT = 48;

}  // namespace

int main() {
  mv::GameManager& game_manager = mv::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game_manager.shutDown();
    return 0;
  }
  mv::WorldManager::getInstance().setBoundary(mv::Box(mv::Vector(0, 0), WORLD_WIDTH, WORLD_HEIGHT));
  mv::splash();
  loadResources();
  new GameStart;
  game_manager.run();
  game_manager.shutDown();
  return 0;
}

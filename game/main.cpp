// Rustline's entry: starts the engine, plays the splash run, loads the game's
// files, shows the start screen and runs until the player quits.
#include "GameManager.h"
#include "GameStart.h"
#include "LogManager.h"
#include "Splash.h"
#include "game.h"

int main() {
  mv::GameManager& game_manager = mv::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game_manager.shutDown();
    return 0;
  }
  setGameBoundary();
  mv::splash();
  loadResources();
  new GameStart;
  game_manager.run();
  game_manager.shutDown();
  return 0;
}

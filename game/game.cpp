// Rustline's entry: starts the engine, plays, and stops it again.
#include "GameManager.h"
#include "LogManager.h"

int main() {
  mv::GameManager& game_manager = mv::GameManager::getInstance();
  if (game_manager.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game_manager.shutDown();
    return 1;
  }
  game_manager.shutDown();
  return 0;
}

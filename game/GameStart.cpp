#include "GameStart.h"

#include "EventKeyboard.h"
#include "GameManager.h"
#include "Hero.h"
#include "Keyboard.h"
#include "Points.h"
#include "ResourceManager.h"
#include "Room.h"
#include "WorldManager.h"

GameStart::GameStart() {
  setType("GameStart");
  setSprite("gamestart");
  setLocation(mv::CENTER_CENTER);
  registerInterest(mv::KEYBOARD_EVENT);
  // The theme goes on through the game; each new start screen starts it afresh.
  music = mv::ResourceManager::getInstance().getMusic("theme");
  if (music != nullptr) {
    music->play(true);
  }
}

int GameStart::eventHandler(const mv::Event* event) {
  if (event->getType() != mv::KEYBOARD_EVENT) {
    return 0;
  }
  const auto* keyboard = static_cast<const mv::EventKeyboard*>(event);
  if (keyboard->getKeyboardAction() != mv::KEY_DOWN) {
    return 0;
  }
  if (keyboard->getKey() == mv::Keyboard::P) {
    start();
  } else if (keyboard->getKey() == mv::Keyboard::Q) {
    mv::GameManager::getInstance().setGameOver(true);
  }
  return 1;
}

// The hero comes first: each enemy looks him up while the room builds it.
void GameStart::start() {
  new Hero;
  new Room("parlor", 1);
  new Points;
  mv::WorldManager::getInstance().markForDelete(this);
}

int GameStart::draw() { return Object::draw(); }

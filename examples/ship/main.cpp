#include "EventKeyboard.h"
#include "GameManager.h"
#include "Keyboard.h"
#include "Object.h"
#include "ResourceManager.h"

class Ship : public mv::Object {
 public:
  Ship() {
    setType("Ship");
    setSprite("ship");
    setPosition(mv::Vector(10, 12));
    registerInterest(mv::KEYBOARD_EVENT);
  }

  int eventHandler(const mv::Event* event) override {
    if (event->getType() != mv::KEYBOARD_EVENT) {
      return Object::eventHandler(event);
    }
    const auto* keyboard = dynamic_cast<const mv::EventKeyboard*>(event);
    if (keyboard->getKeyboardAction() != mv::KEY_PRESSED) {
      return 0;
    }
    switch (keyboard->getKey()) {
      case mv::Keyboard::W: setPosition(getPosition() + mv::Vector(0, -1)); return 1;
      case mv::Keyboard::S: setPosition(getPosition() + mv::Vector(0, 1)); return 1;
      case mv::Keyboard::Q: mv::GameManager::getInstance().setGameOver(); return 1;
      default: return 0;
    }
  }
};

int main() {
  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() == 0) {
    mv::ResourceManager::getInstance().loadSprite("ship-spr.txt", "ship");
    new Ship;  // the world owns it from here on
    game.run();
  }
  game.shutDown();
}

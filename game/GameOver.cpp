#include "GameOver.h"

#include "EventStep.h"
#include "GameStart.h"
#include "ObjectListIterator.h"
#include "Sprite.h"
#include "WorldManager.h"
#include "game.h"

GameOver::GameOver() : time_to_live(0) {
  setType("GameOver");
  if (setSprite("gameover") == 0) {
    // Exactly one pass of the animation.
    const mv::Sprite* sprite = getAnimation().getSprite();
    time_to_live = sprite->getFrameCount() * sprite->getSlowdown();
  }
  setLocation(mv::CENTER_CENTER);
  registerInterest(mv::STEP_EVENT);
}

GameOver::~GameOver() {
  if (!worldIsOpen()) {
    return;
  }
  mv::WorldManager& world = mv::WorldManager::getInstance();
  const mv::ObjectList everything = world.getAllObjects(true);
  mv::ObjectListIterator it(&everything);
  for (it.first(); !it.isDone(); it.next()) {
    world.markForDelete(it.currentObject());
  }
  new GameStart;
}

int GameOver::eventHandler(const mv::Event* event) {
  if (event->getType() != mv::STEP_EVENT) {
    return 0;
  }
  time_to_live--;
  if (time_to_live <= 0) {
    mv::WorldManager::getInstance().markForDelete(this);
  }
  return 1;
}

int GameOver::draw() { return Object::draw(); }

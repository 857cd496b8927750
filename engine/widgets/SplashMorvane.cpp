#include "SplashMorvane.h"

#include <optional>

#include "Animation.h"
#include "EventKeyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "Splash.h"
#include "WorldManager.h"

namespace mv {

namespace {

constexpr int FLIGHT_WIDTH = 11;
constexpr int FLIGHT_HEIGHT = 7;
constexpr int REST_WIDTH = 9;
constexpr int REST_HEIGHT = 6;

// The emblem in flight, wings up and wings spread.
const char* const FLIGHT_FRAMES[2] = {
    "#         #"
    "##       ##"
    " ##  #  ## "
    "  ### ###  "
    "    ###    "
    "    # #    "
    "   #   #   ",
    "           "
    "           "
    "    ###    "
    "###########"
    " ## ### ## "
    "    # #    "
    "   #   #   ",
};

// The emblem at rest, as a line drawing.
const char* const REST_FRAME =
    "\\       /"
    " \\  _  / "
    "  \\/ \\/  "
    "   | |   "
    "   / \\   "
    "  /   \\  ";

std::unique_ptr<Sprite> makeSprite(int frames, int width, int height, Color color) {
  auto sprite = std::make_unique<Sprite>(frames);
  sprite->setWidth(width);
  sprite->setHeight(height);
  sprite->setColor(color);
  return sprite;
}

}  // namespace

SplashMorvane::SplashMorvane(Vector new_end_position)
    : end_position(new_end_position),
      step_counter(30),
      splash_sprite(makeSprite(2, FLIGHT_WIDTH, FLIGHT_HEIGHT, BLUE)) {
  for (const char* frame : FLIGHT_FRAMES) {
    splash_sprite->addFrame(Frame(FLIGHT_WIDTH, FLIGHT_HEIGHT, frame));
  }
  splash_sprite->setSlowdown(2);
  splash_sprite->setLabel("splash-morvane");
  Animation animation;
  animation.setSprite(splash_sprite.get());
  setAnimation(animation, true);
  setType("SplashMorvane");
  setSolidness(SPECTRAL);

  const Box view = WorldManager::getInstance().getView();
  const float start_y = view.getCorner().getY() + view.getVertical() + 6;
  setPosition(Vector(end_position.getX(), start_y));
  setVelocity(Vector(0, (start_y - end_position.getY()) * -1 / 30));
  step_counter = 30;
  registerInterest(STEP_EVENT);
  registerInterest(KEYBOARD_EVENT);
}

int SplashMorvane::eventHandler(const Event* event) {
  if (const std::optional<int> ended = endSplashObject(this, event)) {
    return *ended;
  }
  if (event->getType() != STEP_EVENT) {
    return 1;
  }
  step_counter--;
  // Up at its place, or past it: the climb is over.
  if (step_counter < 1 && !(end_position.getY() < getPosition().getY())) {
    setVelocity(Vector(0, 0));
  }
  if (step_counter == -15) {
    splash_sprite = makeSprite(1, REST_WIDTH, REST_HEIGHT, GREEN);
    splash_sprite->addFrame(Frame(REST_WIDTH, REST_HEIGHT, REST_FRAME));
    Animation animation;
    animation.setSprite(splash_sprite.get());
    setAnimation(animation, true);
    setPosition(Vector(getPosition().getX() - 1, getPosition().getY()));
  }
  if (step_counter == -45) {
    GameManager::getInstance().setGameOver(true);
    WorldManager::getInstance().markForDelete(this);
  }
  return 1;
}

}  // namespace mv

#include "Splash.h"

#include <algorithm>

#include "Animation.h"
#include "Config.h"
#include "EventKeyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "LogManager.h"
#include "SplashMorvane.h"
#include "WorldManager.h"

namespace mv {

namespace {

constexpr int NAME_WIDTH = 47;
constexpr int NAME_HEIGHT = 8;

// The engine's name in two letterings, row after row.
const char* const NAME_FRAMES[2] = {
    "                                               "
    "|\\  /|  ____   ____  |    |   /\\   |\\   |  ____"
    "| \\/ | /    \\ |    \\ |    |  /  \\  | \\  | |    "
    "|    | |    | |____/ \\    / /____\\ |  \\ | |___ "
    "|    | |    | |  \\    \\  /  |    | |   \\| |    "
    "|    | \\____/ |   \\    \\/   |    | |    | |____"
    "                                               "
    "             g a m e   e n g i n e             ",
    "                                               "
    "__  __  ____   ____  _    _   __   _    _  ____"
    "|\\\\//| / __ \\ | __ \\ \\\\  //  /  \\  |\\\\  | | ___"
    "| \\/ | ||  || ||__|/  \\\\//  / /\\ \\ | \\\\ | | |__"
    "| || | ||__|| | _ \\    \\/   | __ | |  \\\\| | |__"
    "|_||_| \\____/ |_|\\_\\   ||   |_||_| |___\\| |____"
    "                                               "
    "           ~ g a m e   e n g i n e ~           ",
};

std::unique_ptr<Sprite> makeNameSprite() {
  auto sprite = std::make_unique<Sprite>(2);
  sprite->setWidth(NAME_WIDTH);
  sprite->setHeight(NAME_HEIGHT);
  sprite->setColor(GREEN);
  for (const char* frame : NAME_FRAMES) {
    sprite->addFrame(Frame(NAME_WIDTH, NAME_HEIGHT, frame));
  }
  sprite->setLabel("splash");
  return sprite;
}

}  // namespace

int splash() {
  LogManager& log = LogManager::getInstance();
  log.writeLog(10, "splash(): Started.");
  GameManager& game = GameManager::getInstance();
  if (!game.isStarted()) {
    log.writeLog("splash(): Error! Cannot run splash screen until game manger is started.");
    return -1;
  }
  new Splash;
  game.run();
  log.writeLog(10, "splash(): Finished.");
  return 0;
}

Splash::Splash() : step_counter(15), splash_sprite(makeNameSprite()) {
  Animation animation;
  animation.setSprite(splash_sprite.get());
  // The name shows one lettering until it stops, then the other.
  animation.setSlowdownCount(-1);
  setAnimation(animation, true);
  setType("Splash");
  setSolidness(SPECTRAL);

  const Box view = WorldManager::getInstance().getView();
  const Box box = getBox();
  setPosition(Vector(view.getCorner().getX() + view.getHorizontal() + box.getHorizontal() * 0.5f,
                     view.getCorner().getY() + view.getVertical() * 0.5f));
  // It crosses the view in half as many steps as a frame lasts milliseconds;
  // a frame time under 2 ms still gives it one step to cross.
  const int steps = std::max(1, Config::getInstance().getFrameTime() / 2);
  const float distance = view.getHorizontal() * 0.5f + box.getHorizontal() * 0.5f + 11;
  setVelocity(Vector(-distance / static_cast<float>(steps), 0));
  step_counter = 15;
  registerInterest(STEP_EVENT);
  registerInterest(KEYBOARD_EVENT);
}

std::optional<int> endSplashObject(Object* object, const Event* event) {
  GameManager& game = GameManager::getInstance();
  if (game.getGameOver()) {
    WorldManager::getInstance().markForDelete(object);
    return 0;
  }
  if (event->getType() == KEYBOARD_EVENT) {
    game.setGameOver(true);
    WorldManager::getInstance().markForDelete(object);
    return 1;
  }
  return std::nullopt;
}

int Splash::eventHandler(const Event* event) {
  if (const std::optional<int> ended = endSplashObject(this, event)) {
    return *ended;
  }
  if (event->getType() == STEP_EVENT) {
    step_counter--;
    if (step_counter == 0) {
      Animation animation = getAnimation();
      animation.setIndex(1);
      setAnimation(animation, true);
      setVelocity(Vector(0, 0));
      new SplashMorvane(getPosition() + Vector(24, 1));
    }
    if (step_counter == -75) {
      WorldManager::getInstance().markForDelete(this);
    }
  }
  return 1;
}

}  // namespace mv

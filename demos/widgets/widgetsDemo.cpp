// The engine's widgets on show: the splash run, then a screen of heads-up
// displays, a button that answers the mouse, and particles of all four
// effects. Escape leaves. With `--screenshot FILE` the program saves a
// picture of the widget screen once it is full, and leaves by itself.
#include <filesystem>
#include <string>

#include "Button.h"
#include "DemoShow.h"
#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventStep.h"
#include "EventView.h"
#include "GameManager.h"
#include "Keyboard.h"
#include "LogManager.h"
#include "Splash.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "geometry.h"
#include "particles.h"

namespace {

// Adds to the "Clicks" display and bursts where it is.
class BurstButton : public mv::Button {
 public:
  BurstButton() {
    setViewString("click me");
    setLocation(mv::CENTER_CENTER);
  }
  void onClick() override {
    const mv::EventView count("Clicks", 1, true);
    mv::WorldManager::getInstance().onEvent(&count);
    mv::addParticles(mv::BURST, mv::viewToWorld(getPosition()), 1, mv::MAGENTA);
  }
};

// Sets off each effect in turn; the picture is taken as the first ones bloom.
class Show : public DemoShow {
 public:
  using DemoShow::DemoShow;

 private:
  bool step(int step_count) override {
    if (step_count % 45 == 0) {
      setOffEffects();
    }
    return step_count == 12;
  }

  static void setOffEffects() {
    mv::addParticles(mv::SMOKE, mv::Vector(12, 19), 2, mv::CUSTOM);
    mv::addParticles(mv::SPARKS, mv::Vector(30, 17), 3, mv::CUSTOM);
    mv::addParticles(mv::BURST, mv::Vector(50, 17), 3, mv::CYAN);
    mv::addParticles(mv::FIREWORKS, mv::Vector(68, 20), 3, mv::CUSTOM);
  }
};

mv::ViewObject* display(const std::string& text, int value, mv::ViewObjectLocation where,
                        mv::Color color) {
  auto* hud = new mv::ViewObject;
  hud->setViewString(text);
  hud->setValue(value);
  hud->setLocation(where);
  hud->setColor(color);
  return hud;
}

void buildWidgetScreen(const std::string& screenshot) {
  display("Health", 5, mv::TOP_LEFT, mv::GREEN);
  display("Room:", 1, mv::TOP_CENTER, mv::WHITE);
  display("Points", 120, mv::TOP_RIGHT, mv::YELLOW);
  display("Clicks", 0, mv::CENTER_LEFT, mv::CYAN);
  mv::ViewObject* help = display("Escape leaves", 0, mv::BOTTOM_CENTER, mv::BLUE);
  help->setDrawValue(false);
  help->setBorder(false);
  new BurstButton;
  new Show(screenshot);
}

}  // namespace

int main(int argc, char* argv[]) {
  const std::string screenshot = screenshotFileFrom(argc, argv);
  // The font and the log live in the build directory.
  std::filesystem::current_path(MORVANE_FONT_DIRECTORY);

  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game.shutDown();
    return 1;
  }
  mv::splash();
  if (!game.getGameOver() || mv::WorldManager::getInstance().getAllObjects(true).isEmpty()) {
    buildWidgetScreen(screenshot);
    game.run();
  }
  game.shutDown();
  return 0;
}

#include "DemoShow.h"

#include <filesystem>
#include <utility>

#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "Keyboard.h"

DemoShow::DemoShow(std::string screenshot_file) : screenshot(std::move(screenshot_file)) {
  setSolidness(mv::SPECTRAL);
  setVisible(false);
  registerInterest(mv::STEP_EVENT);
  registerInterest(mv::KEYBOARD_EVENT);
}

int DemoShow::eventHandler(const mv::Event* event) {
  if (event->getType() == mv::KEYBOARD_EVENT) {
    const auto* key = static_cast<const mv::EventKeyboard*>(event);
    if (key->getKey() == mv::Keyboard::ESCAPE && key->getKeyboardAction() == mv::KEY_PRESSED) {
      mv::GameManager::getInstance().setGameOver();
    }
    return 1;
  }
  if (event->getType() != mv::STEP_EVENT) {
    return Object::eventHandler(event);
  }
  const bool ready = step(static_cast<const mv::EventStep*>(event)->getStepCount());
  if (ready && !screenshot.empty()) {
    mv::DisplayManager::getInstance().saveScreenshot(screenshot);
    mv::GameManager::getInstance().setGameOver();
  }
  return 1;
}

std::string screenshotFileFrom(int argc, char* argv[]) {
  return argc == 3 && std::string(argv[1]) == "--screenshot"
             ? std::filesystem::absolute(argv[2]).string()
             : "";
}

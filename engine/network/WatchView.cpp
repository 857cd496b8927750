#include "WatchView.h"

#include <chrono>
#include <cstdio>
#include <thread>

#include "Config.h"
#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "Keyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Music.h"
#include "ResourceManager.h"
#include "Sound.h"

namespace mv {

namespace {

// How long the ending stands on the screen, in steps: about three seconds.
constexpr int STEPS_TO_READ_THE_ENDING = 90;
// A watcher that falls further behind than this shows the newest frame.
constexpr std::size_t MOST_FRAMES_BEHIND = 3;
constexpr int CONNECT_TIMEOUT_MS = 5000;

}  // namespace

WatchView::WatchView(ScreenWatcher& watcher) : watcher(watcher), steps_to_leave(-1) {
  setType("WatchView");
  setSolidness(SPECTRAL);
  setAltitude(4);
  registerInterest(STEP_EVENT);
  registerInterest(KEYBOARD_EVENT);
}

int WatchView::eventHandler(const Event* event) {
  if (event->getType() == STEP_EVENT) {
    step();
    return 1;
  }
  if (event->getType() == KEYBOARD_EVENT) {
    const auto* key = static_cast<const EventKeyboard*>(event);
    if (key->getKeyboardAction() == KEY_PRESSED &&
        (key->getKey() == Keyboard::ESCAPE || key->getKey() == Keyboard::Q)) {
      watcher.leave();
      GameManager::getInstance().setGameOver();
    }
    return 1;
  }
  return 0;
}

// One frame a step keeps the host's pace; a watcher that has fallen behind
// catches up to the newest frame at once.
void WatchView::step() {
  watcher.poll();
  int shown_step = 0;
  do {
    watcher.showNextFrame(shown_step);
  } while (watcher.getFramesWaiting() > MOST_FRAMES_BEHIND);
  playSounds();
  if (watcher.hasEnded() && watcher.getFramesWaiting() == 0 && steps_to_leave < 0) {
    LogManager::getInstance().writeLog("WatchView::step(): %s", watcher.getEnding().c_str());
    steps_to_leave = STEPS_TO_READ_THE_ENDING;
  }
  if (steps_to_leave == 0) {
    GameManager::getInstance().setGameOver();
  }
  if (steps_to_leave > 0) {
    steps_to_leave--;
  }
}

void WatchView::playSounds() {
  ResourceManager& resources = ResourceManager::getInstance();
  for (const WatchedSound& sound : watcher.takeSounds()) {
    const bool loop = sound.action == AUDIO_LOOPED;
    if (Music* music = sound.music ? resources.getMusic(sound.label) : nullptr) {
      sound.action == AUDIO_STOPPED ? music->stop() : music->play(loop);
    } else if (Sound* effect = sound.music ? nullptr : resources.getSound(sound.label)) {
      sound.action == AUDIO_STOPPED ? effect->stop() : effect->play(loop);
    }
  }
}

int WatchView::draw() {
  watcher.getGrid().draw();
  if (steps_to_leave >= 0) {
    DisplayManager& display = DisplayManager::getInstance();
    const float middle_x = static_cast<float>(display.getHorizontalChars() / 2);
    const float middle_y = static_cast<float>(display.getVerticalChars() / 2);
    display.drawString(Vector(middle_x, middle_y), " " + watcher.getEnding() + " ", CENTER, WHITE);
  }
  return 0;
}

int watchGame(const std::string& host, int port, void (*load_resources)()) {
  ScreenWatcher watcher;
  watcher.connect(host, port, CONNECT_TIMEOUT_MS);
  while (!watcher.isGreeted() && !watcher.hasEnded()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    watcher.poll();
  }
  if (!watcher.isGreeted()) {
    std::fprintf(stderr, "%s\n", watcher.getEnding().c_str());
    return 1;
  }
  const WatchedScreen& screen = watcher.getScreen();
  Config::getInstance().setOverrides(
      "window_horizontal_pixels:" + std::to_string(screen.pixels_across) +
      ",window_vertical_pixels:" + std::to_string(screen.pixels_down) +
      ",window_horizontal_chars:" + std::to_string(screen.columns) +
      ",window_vertical_chars:" + std::to_string(screen.rows) + ",watch_port:0,");
  GameManager& game = GameManager::getInstance();
  if (game.startUp() != 0) {
    LogManager::getInstance().writeLog("Error starting game manager!");
    game.shutDown();
    return 1;
  }
  DisplayManager::getInstance().setWindowTitle("Watching " + screen.title + " at " + host + ":" +
                                               std::to_string(port));
  if (load_resources != nullptr) {
    load_resources();
  }
  new WatchView(watcher);
  game.run();
  game.shutDown();
  return 0;
}

}  // namespace mv

#include "GameManager.h"

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "Clock.h"
#include "Config.h"
#include "DisplayManager.h"
#include "EventStep.h"
#include "FramePacer.h"
#include "InputManager.h"
#include "LogManager.h"
#include "NetworkManager.h"
#include "PathManager.h"
#include "ResourceManager.h"
#include "ScreenMirror.h"
#include "WorldManager.h"
#include "platform.h"

namespace mv {

namespace {

const char* const STARS = "****************************************************";

LogManager& log() { return LogManager::getInstance(); }

}  // namespace

GameManager::GameManager()
    : game_over(false), frame_time(33), step_count(0), stopped_by_signal(false) {
  setType("GameManager");
}

GameManager& GameManager::getInstance() {
  static GameManager instance;
  return instance;
}

int GameManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  stopped_by_signal = false;
  platform::catchStopSignals();
  Config::getInstance().loadConfig("");

  if (LogManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error! Starting log manager.");
    return -1;
  }
  log().writeLog("%s", STARS);
  log().writeLog("** Morvane version %.2f **", MORVANE_VERSION);
  log().writeLog("** Game engine started **");
  log().writeLog("%s", STARS);
  Config::getInstance().logConfig();
  writeWorkingDirectory();
  log().writeLog(1, "Log Manager started.");

  frame_time = Config::getInstance().getFrameTime();
  log().writeLog(5, "GameManager::startUp(): frame time is %d milliseconds", frame_time);

  if (DisplayManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error! Starting display manager.");
    return -1;
  }
  log().writeLog(1, "Display manager started.");

  if (InputManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error! Starting input manager.");
    return -1;
  }
  log().writeLog(1, "Input manager started.");

  if (Config::getInstance().getNetworking()) {
    if (NetworkManager::getInstance().startUp() != 0) {
      log().writeLog("GameManager::startUp(): Error! Starting network manager.");
      return -1;
    }
    log().writeLog(1, "Network manager started.");
  }

  if (ResourceManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error! Starting resource manager.");
    return -1;
  }
  log().writeLog(1, "Resource manager started.");

  if (WorldManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error starting world manager.");
    return -1;
  }
  log().writeLog(1, "World manager started.");

  if (PathManager::getInstance().startUp() != 0) {
    log().writeLog("GameManager::startUp(): Error starting path manager.");
    return -1;
  }
  log().writeLog(1, "Path manager started");

  giveTheWorldTheDisplaysSize();
  letWatchersIn();

  seedRandomGenerator();
  if (platform::beginTimerPeriod(1) == platform::TIMER_NO_CAN_DO) {
    log().writeLog(1,
                   "GameManager()::startUp(): Warning!  timeBeginPeriod() cannot accept 1 msec.");
  }

  game_over = false;
  Manager::startUp();
  log().writeLog(1, "GameManager successfully started.");
  return 0;
}

// The world starts as large as the screen, and the view shows all of it.
void GameManager::giveTheWorldTheDisplaysSize() const {
  const DisplayManager& display = DisplayManager::getInstance();
  const Box screen(Vector(0, 0), static_cast<float>(display.getHorizontalChars()),
                   static_cast<float>(display.getVerticalChars()));
  WorldManager& world = WorldManager::getInstance();
  world.setBoundary(screen);
  world.setView(screen);
  world.setViewSlack(Vector(1.0f / 3.0f, 1.0f / 3.0f));
}

// A game that the configuration lets watchers see is shown to them, but one
// that can't be is still played.
void GameManager::letWatchersIn() const {
  const Config& config = Config::getInstance();
  if (config.getWatchPort() != 0) {
    ScreenMirror::getInstance().start(config.getWatchPort(), config.getWatchAddress());
  }
}

void GameManager::writeWorkingDirectory() const {
  char directory[256];
  log().writeLog(1, "Working directory:");
  if (getcwd(directory, sizeof directory) != nullptr) {
    log().writeLog(1, "  %s", directory);
  } else {
    log().writeLog(1, "  %s", "(full path too long)");
  }
}

void GameManager::seedRandomGenerator() const {
  int seed = Config::getInstance().getRandomSeed();
  if (seed == 0) {
    seed = static_cast<std::int32_t>(static_cast<std::uint32_t>(std::time(nullptr)));
  }
  // A seed with all bits set leaves the generator as it is, for runs that must not repeat.
  if (seed != -1) {
    log().writeLog(10, "GameManager()::startUp(): srand() seed with %d", seed);
    std::srand(static_cast<unsigned>(seed));
  }
}

void GameManager::shutDown() {
  game_over = true;
  platform::releaseStopSignals();
  ScreenMirror::getInstance().stop();
  if (platform::endTimerPeriod(1) == platform::TIMER_NO_CAN_DO) {
    log().writeLog(1, "GameManager()::shutDown(): Warning! timeEndPeriod() cannot accept 1 msec.");
  }
  stopIfStarted(PathManager::getInstance(), "Path manager stopped");
  stopIfStarted(WorldManager::getInstance(), "World manager stopped");
  stopIfStarted(ResourceManager::getInstance(), "Resource manager stopped");
  if (Config::getInstance().getNetworking()) {
    stopIfStarted(NetworkManager::getInstance(), "Network manager stopped");
  }
  stopIfStarted(InputManager::getInstance(), "Input manager stopped");
  stopIfStarted(DisplayManager::getInstance(), "Display manager stopped");
  log().writeLog("%s", STARS);
  log().writeLog("** Game engine stopped **");
  if (LogManager::getInstance().isStarted()) {
    LogManager::getInstance().shutDown();
  }
  Manager::shutDown();
}

void GameManager::stopIfStarted(Manager& manager, const char* stopped_line) {
  if (manager.isStarted()) {
    manager.shutDown();
    log().writeLog(1, "%s", stopped_line);
  }
}

void GameManager::run() {
  Clock clock;
  FramePacer pacer(frame_time);
  log().writeLog(1, "GameManager::run(): starting game loop");
  // After a stop signal no frame runs, and the program goes on to shut down.
  game_over = stopped_by_signal;
  step_count = 0;
  while (!game_over) {
    clock.delta();
    const EventStep step(step_count);
    onEvent(&step);
    DisplayManager::getInstance().swapBuffers();
    // Watchers get the picture the window shows from now on: the last frame's.
    ScreenMirror::getInstance().sendFrame(step_count - 1);
    InputManager::getInstance().getInput();
    WorldManager::getInstance().update();
    WorldManager::getInstance().draw();
    if (Config::getInstance().getNetworking()) {
      pollNetwork();
    }
    PathManager::getInstance().cycle(pacer.pathBudget(clock.split()));

    const int split = clock.split();
    const int left = pacer.timeLeft(split);
    if (left > 0) {
      const int before = clock.split();
      platform::sleepMilliseconds(left / 1000);
      pacer.sleptFor(left, clock.split() - before);
    } else if (pacer.overran(step_count)) {
      log().writeLog("GameManager::run(): Can't keep up! frame_time %d ms, split %d ms", frame_time,
                     split / 1000);
    }
    step_count++;
    noticeStopSignal();
  }
  log().writeLog(1, "GameManager::run(): end of game loop");
}

// A stop signal (Ctrl-C in the terminal, or a desktop that logs out) ends the
// loop at the end of the frame in which it came, as Q does, so that the
// engine shuts down in order and the log is whole. A second one, from then
// on, ends the program at once.
void GameManager::noticeStopSignal() {
  const int signal_number = platform::caughtStopSignal();
  if (signal_number == 0 || stopped_by_signal) {
    return;
  }
  stopped_by_signal = true;
  platform::releaseStopSignals();
  log().writeLog("GameManager::run(): Caught signal %d (%s). Ending the game.", signal_number,
                 strsignal(signal_number));
  game_over = true;
}

// New connections first, then what came in, whose handlers may queue answers
// that are sent in the same frame.
void GameManager::pollNetwork() const {
  NetworkManager& network = NetworkManager::getInstance();
  if (network.isServer()) {
    network.accept();
  }
  if (network.isConnected(-1)) {
    network.receive();
  }
  if (network.isConnected(-1)) {
    network.flushDelayed();
  }
}

bool GameManager::isValid(std::string event_type) const { return event_type == "mv-step"; }

void GameManager::setGameOver(bool new_game_over) { game_over = new_game_over; }

bool GameManager::getGameOver() const { return game_over; }

int GameManager::getFrameTime() const { return frame_time; }

int GameManager::getStepCount() const { return step_count; }

}  // namespace mv

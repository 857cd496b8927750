#include "ScreenMirror.h"

#include <utility>

#include "Config.h"
#include "DisplayManager.h"
#include "LogManager.h"
#include "messages.h"
#include "sockets.h"
#include "watchMessages.h"

namespace mv {

namespace {

constexpr int DEFAULT_MAX_WATCHERS = 3;
// About ten seconds of frames at the usual frame time.
constexpr int DEFAULT_PATIENCE = 300;
constexpr int LISTEN_BACKLOG = 16;
// A watcher sends two small messages in all: a little reading a frame is plenty.
constexpr std::size_t READ_BYTES = 4096;
constexpr std::size_t MOST_MESSAGES_READ = 4;
// More than any whole screen, so only a watcher that reads nothing reaches it.
constexpr std::size_t MOST_BYTES_WAITING = 8 << 20;
// The system keeps no more than about this for a watcher, a few whole
// screens: a watcher that reads slowly is found behind, and skips frames,
// before the frames it gets grow stale.
constexpr int SYSTEM_SEND_BUFFER = 128 * 1024;

LogManager& log() { return LogManager::getInstance(); }

std::string watchMessage(const std::string& label, const std::string& payload) {
  return frameMessage(label, payload, WATCH_LABELS);
}

}  // namespace

ScreenMirror::ScreenMirror()
    : listener(-1),
      max_watchers(DEFAULT_MAX_WATCHERS),
      patience(DEFAULT_PATIENCE),
      next_serial(0),
      drawn(0, 0),
      shown(0, 0),
      read_buffer(READ_BYTES) {}

ScreenMirror& ScreenMirror::getInstance() {
  static ScreenMirror instance;
  return instance;
}

int ScreenMirror::start(int port, const std::string& address) {
  if (isRunning()) {
    log().writeLog("ScreenMirror::start(): Error! Already listening for watchers on port %d.",
                   getPort());
    return -1;
  }
  const int socket = sockets::listenOn(address, port, LISTEN_BACKLOG);
  if (socket == -1) {
    log().writeLog("ScreenMirror::start(): Error! Cannot listen for watchers on %s port %d: %s.",
                   address.c_str(), port, sockets::errorText(sockets::lastError()).c_str());
    return -1;
  }
  listener = socket;
  const DisplayManager& display = DisplayManager::getInstance();
  drawn = ScreenGrid(display.getHorizontalChars(), display.getVerticalChars());
  shown = drawn;
  DisplayManager::getInstance().addCellRecorder(&drawn);
  setAudioListener(this);
  log().writeLog("ScreenMirror::start(): Watchers may connect to %s port %d.", address.c_str(),
                 getPort());
  return 0;
}

void ScreenMirror::stop() {
  if (!isRunning()) {
    return;
  }
  while (!watchers.empty()) {
    drop(0, "the game is over");
  }
  sockets::closeSocket(listener);
  listener = -1;
  DisplayManager::getInstance().removeCellRecorder(&drawn);
  setAudioListener(nullptr);
}

bool ScreenMirror::isRunning() const { return listener != -1; }

int ScreenMirror::getPort() const { return isRunning() ? sockets::localPort(listener) : -1; }

int ScreenMirror::getWatcherCount() const { return static_cast<int>(watchers.size()); }

void ScreenMirror::setMaxWatchers(int most) { max_watchers = most; }

void ScreenMirror::setPatience(int frames) { patience = frames; }

void ScreenMirror::sendFrame(int step) {
  if (!isRunning()) {
    return;
  }
  takeNewWatchers();
  listenToWatchers();
  std::size_t index = 0;
  while (index < watchers.size()) {
    if (const char* why = sendTo(watchers[index], step)) {
      drop(index, why);
    } else {
      index++;
    }
  }
  shown.swapCells(drawn);
  drawn.clear();
  sounds.clear();
  changes_message.clear();
  whole_message.clear();
}

// Each kind of screen message is made once a frame, however many get it.
const std::string& ScreenMirror::screenMessage(bool whole, int step) {
  std::string& message = whole ? whole_message : changes_message;
  if (message.empty()) {
    message = watchMessage(WATCH_SCREEN, screenChanges(step, whole ? nullptr : &shown, drawn));
  }
  return message;
}

// A new watcher is greeted with the screen's size at once; its frames start
// once it has greeted back.
void ScreenMirror::takeNewWatchers() {
  int socket;
  while ((socket = sockets::acceptConnection(listener)) != -1) {
    if (static_cast<int>(watchers.size()) >= max_watchers) {
      log().writeLog(
          "ScreenMirror::sendFrame(): Error! Turned a watcher away: %d watch already, the most "
          "there may be.",
          max_watchers);
      sockets::closeSocket(socket);
      continue;
    }
    log().writeLog(1, "ScreenMirror::sendFrame(): A watcher came, socket %d.", socket);
    sockets::limitSendBuffer(socket, SYSTEM_SEND_BUFFER);
    watchers.push_back(Watcher{Connection(socket, next_serial++, WATCH_LABELS)});
    const DisplayManager& display = DisplayManager::getInstance();
    WatchedScreen screen;
    screen.columns = display.getHorizontalChars();
    screen.rows = display.getVerticalChars();
    screen.pixels_across = display.getHorizontalPixels();
    screen.pixels_down = display.getVerticalPixels();
    screen.title = Config::getInstance().getWindowTitle();
    watchers.back().connection.append(watchMessage(WATCH_HELLO, helloToWatcher(screen)));
  }
}

void ScreenMirror::listenToWatchers() {
  std::size_t index = 0;
  while (index < watchers.size()) {
    index += listenTo(watchers[index]) ? 1 : 0;
  }
}

bool ScreenMirror::listenTo(Watcher& watcher) {
  const auto index = static_cast<std::size_t>(&watcher - watchers.data());
  Connection& connection = watcher.connection;
  const Connection::ReadOutcome outcome = connection.readArrived(read_buffer, READ_BYTES);
  connection.startPoll(MOST_MESSAGES_READ, READ_BYTES);
  Message message;
  while (connection.nextMessage(message)) {
    if (message.label == WATCH_LEAVE) {
      drop(index, "it left");
      return false;
    }
    if (message.label != WATCH_HELLO || watcher.greeted || !readHelloFromWatcher(message.payload)) {
      drop(index, "it sent what a watcher never sends");
      return false;
    }
    watcher.greeted = true;
  }
  connection.endPoll();
  if (connection.getReader().isBroken()) {
    drop(index, "it broke the rules of messages");
  } else if (outcome != Connection::STILL_OPEN) {
    drop(index, "it went away");
  } else if (!watcher.greeted && ++watcher.frames_waiting_for_greeting > patience) {
    drop(index, "it never greeted");
  } else {
    return true;
  }
  return false;
}

// A watcher whose socket has not yet taken the last frame misses this one,
// and is sent a whole screen once it has caught up. Answers why the watcher
// must go, or null.
const char* ScreenMirror::sendTo(Watcher& watcher, int step) {
  Connection& connection = watcher.connection;
  if (connection.writeWaiting() == Connection::WRITE_FAILED) {
    return "its connection failed";
  }
  if (!watcher.greeted) {
    return nullptr;
  }
  if (connection.getWaitingBytes() > 0) {
    watcher.needs_whole_screen = true;
    return ++watcher.frames_missed > patience ? "it fell behind and stayed there" : nullptr;
  }
  connection.append(sounds);
  connection.append(screenMessage(watcher.needs_whole_screen, step));
  watcher.needs_whole_screen = false;
  watcher.frames_missed = 0;
  if (connection.writeWaiting() == Connection::WRITE_FAILED) {
    return "its connection failed";
  }
  return connection.getWaitingBytes() > MOST_BYTES_WAITING ? "it reads nothing" : nullptr;
}

void ScreenMirror::drop(std::size_t index, const char* why) {
  const int socket = watchers[index].connection.getSocket();
  log().writeLog("ScreenMirror::sendFrame(): The watcher on socket %d is gone: %s.", socket, why);
  sockets::closeSocket(socket);
  watchers.erase(watchers.begin() + static_cast<long>(index));
}

void ScreenMirror::audioChanged(bool music, AudioAction action, const std::string& label) {
  WatchedSound sound;
  sound.music = music;
  sound.action = action;
  sound.label = label;
  sounds += watchMessage(WATCH_SOUND, soundToWatcher(sound));
}

}  // namespace mv

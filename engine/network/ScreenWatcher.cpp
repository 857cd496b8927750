#include "ScreenWatcher.h"

#include <chrono>
#include <utility>

#include "messages.h"
#include "sockets.h"

namespace mv {

namespace {

constexpr std::size_t READ_BYTES = 64 * 1024;
// A whole screen of the largest grid a watcher takes, and then some.
constexpr std::size_t MOST_BYTES_PER_POLL = 16 << 20;
constexpr std::size_t MOST_MESSAGES_PER_POLL = 100000;

}  // namespace

ScreenWatcher::ScreenWatcher() : greeted(false), grid(0, 0), read_buffer(READ_BYTES) {}

ScreenWatcher::~ScreenWatcher() { close(); }

bool ScreenWatcher::connect(const std::string& host, int port, int timeout_ms) {
  const std::string where = host + " port " + std::to_string(port);
  if (host.empty() || port <= 0 || port > 65535) {
    end("There is no game to watch at " + where + ": that is no address.");
    return false;
  }
  const int socket = sockets::openStreamSocket();
  if (socket == -1) {
    end("No connection can be made: " + sockets::errorText(sockets::lastError()) + ".");
    return false;
  }
  connection = std::make_unique<Connection>(socket, 0, host, port, std::chrono::steady_clock::now(),
                                            timeout_ms, WATCH_LABELS);
  return true;
}

void ScreenWatcher::poll() {
  if (connection == nullptr) {
    return;
  }
  if (!connection->isOpen()) {
    const Connection::OpenOutcome outcome =
        connection->advanceOpening(std::chrono::steady_clock::now());
    if (outcome == Connection::OPEN_FAILED) {
      end("There is no game to watch at " + connection->getHost() + " port " +
          std::to_string(connection->getPort()) + ": " + connection->getOpenProblem() + ".");
      return;
    }
    if (outcome == Connection::OPENING) {
      return;
    }
    connection->append(frameMessage(WATCH_HELLO, helloFromWatcher(), WATCH_LABELS));
  }
  if (connection->writeWaiting() == Connection::WRITE_FAILED) {
    end("The link to the host broke: " + sockets::errorText(sockets::lastError()) + ".");
    return;
  }
  const Connection::ReadOutcome outcome = connection->readArrived(read_buffer, MOST_BYTES_PER_POLL);
  const int error = sockets::lastError();
  connection->startPoll(MOST_MESSAGES_PER_POLL, MOST_BYTES_PER_POLL);
  Message message;
  while (connection != nullptr && connection->nextMessage(message)) {
    take(message);
  }
  if (connection == nullptr) {
    return;
  }
  connection->endPoll();
  if (connection->getReader().isBroken()) {
    end("The host sent what no host sends: " + connection->getReader().getProblem() + ".");
  } else if (outcome == Connection::PEER_GONE && !connection->wasCapped()) {
    end("The host has ended the game.");
  } else if (outcome == Connection::READ_FAILED) {
    end("The link to the host broke: " + sockets::errorText(error) + ".");
  }
}

void ScreenWatcher::take(const Message& message) {
  if (message.label == WATCH_HELLO && !greeted && readHelloToWatcher(message.payload, screen)) {
    greeted = true;
    grid = ScreenGrid(screen.columns, screen.rows);
    return;
  }
  WatchedSound sound;
  if (greeted && message.label == WATCH_SCREEN) {
    frames.push_back(Frame{std::move(coming_sounds), message.payload});
    coming_sounds.clear();
  } else if (greeted && message.label == WATCH_SOUND && readSoundToWatcher(message.payload, sound)) {
    coming_sounds.push_back(sound);
  } else {
    end("The host sent what no host sends: a " + message.label + " message out of turn.");
  }
}

bool ScreenWatcher::isGreeted() const { return greeted; }

const WatchedScreen& ScreenWatcher::getScreen() const { return screen; }

bool ScreenWatcher::hasEnded() const { return !ending.empty(); }

const std::string& ScreenWatcher::getEnding() const { return ending; }

std::size_t ScreenWatcher::getFramesWaiting() const { return frames.size(); }

bool ScreenWatcher::showNextFrame(int& step) {
  if (frames.empty()) {
    return false;
  }
  Frame frame = std::move(frames.front());
  frames.pop_front();
  if (!applyScreenChanges(frame.screen, grid, step)) {
    frames.clear();
    end("The host sent a broken screen.");
    return false;
  }
  due_sounds.insert(due_sounds.end(), frame.sounds.begin(), frame.sounds.end());
  return true;
}

const ScreenGrid& ScreenWatcher::getGrid() const { return grid; }

std::vector<WatchedSound> ScreenWatcher::takeSounds() { return std::exchange(due_sounds, {}); }

void ScreenWatcher::leave() {
  if (connection != nullptr && connection->isOpen()) {
    connection->append(frameMessage(WATCH_LEAVE, "", WATCH_LABELS));
    connection->writeWaiting();
  }
  end("You left.");
}

void ScreenWatcher::end(const std::string& why) {
  if (ending.empty()) {
    ending = why;
  }
  close();
}

void ScreenWatcher::close() {
  if (connection != nullptr) {
    sockets::closeSocket(connection->getSocket());
    connection.reset();
  }
}

}  // namespace mv

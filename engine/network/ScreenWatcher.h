// Watches a game that a host shows over the network: connects without
// waiting, greets the host, and puts the frames that come together into a
// screen, one frame at a time, with the sounds the host played on the way.
// Anything a host never sends ends the watching, as does the host's leaving.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "Connection.h"
#include "ScreenGrid.h"
#include "watchMessages.h"

namespace mv {

class ScreenWatcher {
 public:
  ScreenWatcher();
  ~ScreenWatcher();

  ScreenWatcher(const ScreenWatcher&) = delete;
  ScreenWatcher& operator=(const ScreenWatcher&) = delete;

  // Starts connecting to the host: false, with the reason in getEnding(), for
  // an address that can't be connected to at all.
  bool connect(const std::string& host, int port, int timeout_ms);

  // Reads what has come, without waiting.
  void poll();

  // Whether the host has greeted, and the screen it told of.
  bool isGreeted() const;
  const WatchedScreen& getScreen() const;

  // Whether the watching is over, and why, in words for the watcher.
  bool hasEnded() const;
  const std::string& getEnding() const;

  // Frames that came and are not yet shown.
  std::size_t getFramesWaiting() const;
  // Brings the screen to the next frame that came and tells its step; false
  // when none waits.
  bool showNextFrame(int& step);
  const ScreenGrid& getGrid() const;
  // The sounds of the frames shown since the last call, in order.
  std::vector<WatchedSound> takeSounds();

  // Tells the host this watcher leaves, and closes the connection.
  void leave();

 private:
  struct Frame {
    std::vector<WatchedSound> sounds;
    std::string screen;
  };

  void take(const Message& message);
  void end(const std::string& why);
  void close();

  std::unique_ptr<Connection> connection;
  WatchedScreen screen;
  bool greeted;
  std::string ending;
  ScreenGrid grid;
  std::deque<Frame> frames;
  // Sounds that came after the last frame, for the next one.
  std::vector<WatchedSound> coming_sounds;
  std::vector<WatchedSound> due_sounds;
  std::vector<char> read_buffer;
};

}  // namespace mv

// Shows a game to those who watch it over the network, whatever the game. It
// listens for watchers, and each frame sends every watcher the cells of the
// screen that changed since the frame it has, with the frame's step, and the
// sounds and music the game played, by label. The game never waits for a
// watcher: what a watcher's socket can't take waits in its buffer, a watcher
// still behind at the next frame misses frames and is sent a whole screen once
// it has caught up, and one that stays behind too long is dropped.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "AudioListener.h"
#include "Connection.h"
#include "ScreenGrid.h"

namespace mv {

class ScreenMirror : public AudioListener {
 public:
  static ScreenMirror& getInstance();

  ScreenMirror(const ScreenMirror&) = delete;
  ScreenMirror& operator=(const ScreenMirror&) = delete;

  // Listens for watchers on `port` (0 lets the system choose) at `address`,
  // and from now on keeps each frame the display draws: 0, or -1 with a line
  // in the log. The display must be started.
  int start(int port, const std::string& address);
  // Tells every watcher the game is over by closing its connection.
  void stop();
  bool isRunning() const;
  // The port watchers connect to; -1 when not running.
  int getPort() const;

  // Takes new watchers, reads what watchers sent, and sends each one the
  // picture of game step `step`: what the display was asked to draw since the
  // last call, which the window shows once its buffers are swapped.
  void sendFrame(int step);

  int getWatcherCount() const;
  // How many may watch at once; those beyond are turned away. 3 at first.
  void setMaxWatchers(int most);
  // How many frames in a row a watcher may miss before it is dropped.
  void setPatience(int frames);

  void audioChanged(bool music, AudioAction action, const std::string& label) override;

 private:
  struct Watcher {
    Connection connection;
    bool greeted = false;
    bool needs_whole_screen = true;
    int frames_missed = 0;
    int frames_waiting_for_greeting = 0;
  };

  ScreenMirror();
  void takeNewWatchers();
  void listenToWatchers();
  // False when the watcher left or broke the rules and was dropped.
  bool listenTo(Watcher& watcher);
  const char* sendTo(Watcher& watcher, int step);
  const std::string& screenMessage(bool whole, int step);
  void drop(std::size_t index, const char* why);

  int listener;
  int max_watchers;
  int patience;
  unsigned next_serial;
  std::vector<Watcher> watchers;
  ScreenGrid drawn;
  ScreenGrid shown;
  // This frame's sounds, framed, for every watcher that gets the frame.
  std::string sounds;
  std::string changes_message;
  std::string whole_message;
  std::vector<char> read_buffer;
};

}  // namespace mv

// How a game's screen and sounds travel to those who watch it. Each message is
// framed as the network's messages are, with labels of its own: the host
// greets a watcher with the size of its screen, then sends each frame's cells
// that changed (or all of them), and the sounds and music the game plays, by
// label; the watcher sends only its greeting and, at the end, its leaving.
#pragma once

#include <string>
#include <vector>

#include "AudioListener.h"
#include "ScreenGrid.h"

namespace mv {

inline const std::string WATCH_HELLO = "watch-hello";
inline const std::string WATCH_SCREEN = "watch-screen";
inline const std::string WATCH_SOUND = "watch-sound";
inline const std::string WATCH_LEAVE = "watch-leave";
inline const std::vector<std::string> WATCH_LABELS = {WATCH_HELLO, WATCH_SCREEN, WATCH_SOUND,
                                                      WATCH_LEAVE};

// The port watchers connect to unless they are told another.
constexpr int DEFAULT_WATCH_PORT = 7171;

// Reads "HOST" or "HOST:PORT" into `host` and `port`, the port
// DEFAULT_WATCH_PORT when none is given: false for anything else.
bool parseWatchAddress(const std::string& address, std::string& host, int& port);

// What a host tells a new watcher: its grid, its window's pixels and its title.
struct WatchedScreen {
  int columns = 0;
  int rows = 0;
  int pixels_across = 0;
  int pixels_down = 0;
  std::string title;
};

// The most cells across or down that a watcher takes from a host.
constexpr int MOST_WATCHED_CELLS = 1000;

std::string helloToWatcher(const WatchedScreen& screen);
// False, with a line in the log, for a greeting that is cut or out of bounds.
bool readHelloToWatcher(const std::string& payload, WatchedScreen& screen);

// The watcher's greeting, which names the version of these messages it reads.
std::string helloFromWatcher();
bool readHelloFromWatcher(const std::string& payload);

// The cells of `now` that differ from `before` at game step `step`; all of
// them, for a watcher to start afresh, when `before` is null.
std::string screenChanges(int step, const ScreenGrid* before, const ScreenGrid& now);
// Brings `grid` to the screen of a message and tells its step. False, with a
// line in the log, for a message that is cut or reaches past the grid; the
// grid then stands as far as the message came, every cell within it.
bool applyScreenChanges(const std::string& payload, ScreenGrid& grid, int& step);

// A sound or piece of music that the game started or stopped.
struct WatchedSound {
  bool music = false;
  AudioAction action = AUDIO_STOPPED;
  std::string label;
};

std::string soundToWatcher(const WatchedSound& sound);
bool readSoundToWatcher(const std::string& payload, WatchedSound& sound);

}  // namespace mv

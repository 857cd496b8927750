// The watcher's side of a watched game, as an object in its own world: each
// step it shows the next frame that came from the host, at the host's pace,
// and plays the sounds the host played where it has them. When the watching
// ends it says why on the screen and, a few seconds on, ends the game loop;
// Escape or Q leaves at once.
#pragma once

#include <string>

#include "Object.h"
#include "ScreenWatcher.h"

namespace mv {

class WatchView : public Object {
 public:
  // Borrows `watcher`, which must outlive the view.
  explicit WatchView(ScreenWatcher& watcher);

  int eventHandler(const Event* event) override;
  int draw() override;

 private:
  void step();
  void playSounds();

  ScreenWatcher& watcher;
  int steps_to_leave;
};

// Watches the game shown at `host` and `port` in a window of the host's
// screen, until the watcher leaves or the watching ends; `load_resources`,
// if given, loads the sounds the host plays. Answers the program's exit
// status: 0, or 1 when no game could be watched.
int watchGame(const std::string& host, int port, void (*load_resources)() = nullptr);

}  // namespace mv

// A game played by our own player and watched over loopback. Every frame that
// a watcher shows must be the host's screen of that frame, cell for cell and
// colour for colour; watchers come and go, one reads nothing, one too many
// asks to watch, and the host's end is told to all who stay.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "DisplayManager.h"
#include "GameManager.h"
#include "InputManager.h"
#include "NetworkManager.h"
#include "ScratchDirectory.h"
#include "ScreenGrid.h"
#include "ScreenMirror.h"
#include "ScreenWatcher.h"
#include "game.h"
#include "logLines.h"
#include "loopbackPeer.h"
#include "messages.h"
#include "session.h"
#include "sockets.h"

namespace {

constexpr int FRAMES = 3000;
const char* const SETTINGS = "headless:true,frame_time:0,random_seed:4242,";

// A watcher of our own in this process, and what it has shown.
struct Watching {
  mv::ScreenWatcher watcher;
  int joined_at = 0;
  int shown = 0;
  int differing = 0;
  int shots_heard = 0;
};

// A peer that greets as a watcher and then reads nothing, with the smallest
// receive buffer the system allows.
int watcherThatReadsNothing(int port) {
  const int peer = mv_test::connectLoopback(port, 1);
  const std::string hello =
      mv::frameMessage(mv::WATCH_HELLO, mv::helloFromWatcher(), mv::WATCH_LABELS);
  EXPECT_EQ(mv::sockets::sendSome(peer, hello.data(), hello.size()),
            static_cast<long>(hello.size()));
  return peer;
}

TEST(Watching, EveryFrameAWatcherShowsIsTheHostsAndNoWatcherHoldsTheHostUp) {
  mv_test::ScratchDirectory scratch;
  const std::filesystem::path folder =
      makePlayFolder(scratch.path(), RUSTLINE_SOURCE_DIR, SETTINGS, {});
  ASSERT_FALSE(folder.empty());
  std::filesystem::current_path(folder);
  fixGameSeconds(1700000000);
  ASSERT_EQ(startRustline(), 0);
  mv::ScreenMirror& mirror = mv::ScreenMirror::getInstance();
  ASSERT_EQ(mirror.start(0, mv::LOOPBACK_ADDRESS), 0);
  mirror.setPatience(60);
  mv::ScreenGrid host_screen(157, 48);
  mv::DisplayManager::getInstance().addCellRecorder(&host_screen);

  // Watchers join at frames 0 and 1,000 and 2,000; one that reads nothing at
  // 10, and one too many at 2,100.
  std::vector<std::unique_ptr<Watching>> watchers;
  const std::map<int, int> joining = {{0, 0}, {1000, 1}, {2000, 2}};
  std::map<int, std::vector<mv::ScreenCell>> host_screens;
  int silent = -1;
  int turned_away = -1;
  AutoPlayer player(3);
  player.setFrameListener([&](int frame) {
    // What the host drew in the frame before this one, the step it sent it at.
    const int step = mv::GameManager::getInstance().getStepCount() - 1;
    host_screens[step] = host_screen.getCells();
    host_screens.erase(step - 5);
    host_screen.clear();
    if (joining.count(frame) > 0) {
      watchers.push_back(std::make_unique<Watching>());
      watchers.back()->joined_at = frame;
      ASSERT_TRUE(watchers.back()->watcher.connect(mv::LOOPBACK_ADDRESS, mirror.getPort(), 1000));
    }
    if (frame == 10) {
      silent = watcherThatReadsNothing(mirror.getPort());
    }
    if (frame == 2100) {
      turned_away = watcherThatReadsNothing(mirror.getPort());
    }
    for (const auto& w : watchers) {
      w->watcher.poll();

      int shown_step = 0;
      while (w->watcher.showNextFrame(shown_step)) {
        const auto host = host_screens.find(shown_step);
        w->differing +=
            host == host_screens.end() || host->second != w->watcher.getGrid().getCells();
        w->shown++;
      }
      for (const mv::WatchedSound& sound : w->watcher.takeSounds()) {
        w->shots_heard += sound.label == "shoot";
      }
    }
    if (frame + 1 == FRAMES) {
      mv::GameManager::getInstance().setGameOver();
    }
  });
  mv::InputManager::getInstance().setInputSource(&player);
  mv::GameManager::getInstance().run();
  const int watching_at_the_end = mirror.getWatcherCount();
  mv::DisplayManager::getInstance().removeCellRecorder(&host_screen);
  stopRustline();
  fixGameSeconds(-1);

  EXPECT_EQ(watching_at_the_end, 3) << "the one that reads nothing is gone, no other";
  EXPECT_NE(mv_test::readFile("morvane.log").find("is gone: it fell behind and stayed there."),
            std::string::npos);
  EXPECT_TRUE(mv_test::logged(
      "ScreenMirror::sendFrame(): Error! Turned a watcher away: 3 watch already, the most there "
      "may be."));
  char byte;
  EXPECT_LE(recv(turned_away, &byte, 1, 0), 0) << "the one too many finds the door closed";
  for (const auto& w : watchers) {
    SCOPED_TRACE(testing::Message() << "the watcher that joined at frame " << w->joined_at);
    EXPECT_EQ(w->differing, 0);
    EXPECT_GE(w->shown, (FRAMES - w->joined_at) * 95 / 100);
    EXPECT_GT(w->shots_heard, 0) << "the hero's shots are heard";
    for (int i = 0; i < 100 && !w->watcher.hasEnded(); i++) {
      w->watcher.poll();
      int step;
      while (w->watcher.showNextFrame(step)) {
      }
    }
    EXPECT_EQ(w->watcher.getEnding(), "The host has ended the game.");
  }
  mv::sockets::closeSocket(silent);
  mv::sockets::closeSocket(turned_away);
}

}  // namespace

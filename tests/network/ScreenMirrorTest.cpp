#include "ScreenMirror.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "DisplayManager.h"
#include "LogManager.h"
#include "NetworkManager.h"
#include "ScratchDirectory.h"
#include "displayStart.h"
#include "logLines.h"
#include "loopbackPeer.h"
#include "messages.h"
#include "platform.h"
#include "sockets.h"
#include "watchMessages.h"

namespace {

using mv::ScreenMirror;

std::string watchMessage(const std::string& label, const std::string& payload) {
  return mv::frameMessage(label, payload, mv::WATCH_LABELS);
}

// A watcher may greet and leave, and nothing more: anything else from it
// closes it with a line that says what it did.
TEST(ScreenMirror, AWatcherThatSendsWhatNoWatcherSendsIsClosedWithALine) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(mv_test::startDisplay("headless:true,window_horizontal_chars:20,"
                                  "window_vertical_chars:5,"),
            0);
  mv::LogManager::getInstance().setFlush(true);
  ScreenMirror& mirror = ScreenMirror::getInstance();
  ASSERT_EQ(mirror.start(0, mv::LOOPBACK_ADDRESS), 0);
  const std::string hello = watchMessage(mv::WATCH_HELLO, mv::helloFromWatcher());
  const struct {
    std::string sent;
    const char* why;
  } watchers[] = {
      {hello + watchMessage(mv::WATCH_LEAVE, ""), "it left"},
      {hello + hello, "it sent what a watcher never sends"},
      {watchMessage(mv::WATCH_SCREEN, ""), "it sent what a watcher never sends"},
      {watchMessage(mv::WATCH_HELLO, "old"), "it sent what a watcher never sends"},
      {std::string("\x02\0\0\0\x09x", 6), "it broke the rules of messages"},
      {hello.substr(0, 3), "it went away"},
  };
  for (const auto& w : watchers) {
    SCOPED_TRACE(w.why);
    const int peer = mv_test::connectLoopback(mirror.getPort());
    ASSERT_EQ(mv::sockets::sendSome(peer, w.sent.data(), w.sent.size()),
              static_cast<long>(w.sent.size()));
    const bool hangs_up = std::string(w.why) == "it went away";
    if (hangs_up) {
      mv::sockets::closeSocket(peer);
    }
    for (int frame = 0; frame < 1000 && (frame == 0 || mirror.getWatcherCount() > 0); frame++) {
      mirror.sendFrame(frame);
      mv::platform::sleepMilliseconds(1);
    }
    EXPECT_EQ(mirror.getWatcherCount(), 0);
    EXPECT_NE(mv_test::readFile("morvane.log").find(std::string("is gone: ") + w.why + "."),
              std::string::npos);
    if (!hangs_up) {
      mv::sockets::closeSocket(peer);
    }
  }
  mirror.stop();
  mv::DisplayManager::getInstance().shutDown();
}

}  // namespace

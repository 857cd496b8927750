#include "watchMessages.h"

#include <gtest/gtest.h>

#include "LogManager.h"
#include "ScratchDirectory.h"

namespace {

using mv::ScreenGrid;
using mv::Vector;

TEST(WatchMessages, AScreenArrivesAsDrawnAndOneCutOrPastTheGridIsRefusedWritingNothing) {
  ScreenGrid before(6, 3);
  before.recordCell(Vector(0, 0), 'a', 255, 0, 0);
  before.recordCell(Vector(5, 2), 'z', 1, 2, 3);
  before.recordCell(Vector(2.7f, 1.2f), ' ', 0, 0, 255);
  before.recordCell(Vector(3, 1), 'b', 0, 255, 0);  // on its corner, in the same run
  ScreenGrid now = before;
  now.recordCell(Vector(5, 2), 'y', 1, 2, 3);
  now.recordCell(Vector(6, 0), 'x', 0, 0, 0);
  now.setCell(0, mv::ScreenCell());

  ScreenGrid watched(6, 3);
  int step = -1;
  ASSERT_TRUE(mv::applyScreenChanges(mv::screenChanges(7, nullptr, before), watched, step));
  EXPECT_EQ(step, 7);
  EXPECT_EQ(watched.getCells(), before.getCells()) << "places within a cell come exactly";
  const std::string changes = mv::screenChanges(8, &before, now);
  EXPECT_LT(changes.size(), mv::screenChanges(8, nullptr, now).size());
  ASSERT_TRUE(mv::applyScreenChanges(changes, watched, step));
  EXPECT_EQ(step, 8);
  EXPECT_EQ(watched.getCells(), now.getCells());
  ScreenGrid stale = before;
  ASSERT_TRUE(mv::applyScreenChanges(mv::screenChanges(9, nullptr, now), stale, step));
  EXPECT_EQ(stale.getCells(), now.getCells()) << "a whole screen clears what it does not name";

  mv_test::ScratchDirectory scratch;
  mv::LogManager::getInstance().startUp();
  ScreenGrid big(10, 10);
  big.recordCell(Vector(9, 9), '#', 9, 9, 9);
  const std::string screen = mv::screenChanges(1, nullptr, big);
  ScreenGrid small(4, 4);
  EXPECT_FALSE(mv::applyScreenChanges(screen, small, step)) << "cell 99 of a grid of 16";
  ScreenGrid row(10, 10);
  for (float x = 0; x < 10; x++) {
    row.recordCell(Vector(x, 1), '-', 9, 9, 9);
  }
  EXPECT_FALSE(mv::applyScreenChanges(mv::screenChanges(1, nullptr, row), small, step))
      << "a run of cells 10 to 19 over a grid of 16";
  EXPECT_FALSE(mv::applyScreenChanges(screen.substr(0, screen.size() - 1), big, step));
  EXPECT_EQ(small.getCells(), ScreenGrid(4, 4).getCells());

  mv::WatchedScreen hello;
  EXPECT_FALSE(mv::readHelloToWatcher("", hello));
  mv::WatchedScreen huge{mv::MOST_WATCHED_CELLS + 1, 10, 100, 100, "x"};
  EXPECT_FALSE(mv::readHelloToWatcher(mv::helloToWatcher(huge), hello));
  mv::WatchedScreen fine{157, 48, 1570, 960, "Rustline"};
  ASSERT_TRUE(mv::readHelloToWatcher(mv::helloToWatcher(fine), hello));
  EXPECT_EQ(hello.title, "Rustline");
  EXPECT_TRUE(mv::readHelloFromWatcher(mv::helloFromWatcher()));
  EXPECT_FALSE(mv::readHelloFromWatcher(mv::helloFromWatcher() + "x"));

  mv::WatchedSound heard;
  for (const mv::AudioAction action : {mv::AUDIO_STOPPED, mv::AUDIO_PLAYED, mv::AUDIO_LOOPED}) {
    ASSERT_TRUE(mv::readSoundToWatcher(mv::soundToWatcher({true, action, "theme"}), heard));
    EXPECT_EQ(heard.action, action);
    EXPECT_TRUE(heard.music);
  }
  mv::WatchedSound unknown{false, mv::AUDIO_LOOPED, "shoot"};
  std::string payload = mv::soundToWatcher(unknown);
  payload[1] = 3;
  EXPECT_FALSE(mv::readSoundToWatcher(payload, heard)) << "no action 3";
}

TEST(WatchMessages, AnAddressIsAHostAndAPortOrTheWatchersOwn) {
  const struct {
    const char* address;
    bool good;
    const char* host;
    int port;
  } cases[] = {
      {"example.org", true, "example.org", mv::DEFAULT_WATCH_PORT},
      {"127.0.0.1:9000", true, "127.0.0.1", 9000},
      {"host:", false, "", 0},
      {"host:65536", false, "", 0},
      {"host:12a", false, "", 0},
      {":80", false, "", 0},
  };
  for (const auto& c : cases) {
    std::string host;
    int port = 0;
    EXPECT_EQ(mv::parseWatchAddress(c.address, host, port), c.good) << c.address;
    if (c.good) {
      EXPECT_EQ(host, c.host);
      EXPECT_EQ(port, c.port);
    }
  }
}

}  // namespace

#include "DisplayManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Config.h"
#include "LogManager.h"
#include "ScratchDirectory.h"
#include "TextScreen.h"
#include "colorToSFML.h"
#include "displayStart.h"
#include "logLines.h"

namespace {

using mv::DisplayManager;
using mv::Vector;

// Stops the log and answers its messages.
std::vector<std::string> logAfterStop() {
  mv::LogManager::getInstance().shutDown();
  return mv_test::logFileMessages();
}

// Headless, the display draws nothing and says nothing of it. It refuses to
// draw before its start, a grid without cells, a second start, and a start
// with no display server, each with a line that says so.
TEST(DisplayManagerStartUp, HeadlessDrawsNothingAndRefusalsBeforeTheStartOrOfBadGridsOrServers) {
  mv_test::ScratchDirectory scratch;
  // Any contact with a display server would fail without one.
  unsetenv("DISPLAY");
  DisplayManager& display = DisplayManager::getInstance();
  mv::LogManager& log = mv::LogManager::getInstance();
  log.setLogLevel(29);
  log.startUp();
  EXPECT_EQ(display.saveScreenshot("shot.png"), -1);
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', mv::RED, 0), -1);
  EXPECT_EQ(display.drawString(Vector(1, 1), "a", mv::LEFT, mv::RED), -1);
  EXPECT_EQ(display.swapBuffers(), -1);
  mv::Config::getInstance().loadConfig("headless:true,window_horizontal_chars:100,");
  ASSERT_EQ(display.startUp(), 0);
  EXPECT_EQ(display.getWindow(), nullptr);
  EXPECT_EQ(display.getHorizontalChars(), 100);

  log.writeLog("drawing starts");
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', mv::RED, 0), -1);
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', 1, 2, 3, 0), -1);
  EXPECT_EQ(display.drawString(Vector(1, 1), "hello", mv::CENTER, mv::RED), -1);
  EXPECT_EQ(display.swapBuffers(), -1);
  log.writeLog("drawing ends");
  EXPECT_EQ(display.saveScreenshot("shot.png"), -1);
  EXPECT_EQ(display.saveScreenshot("shot.txt"), -1);
  display.shutDown();
  EXPECT_FALSE(display.isStarted());

  const std::vector<std::string> messages = logAfterStop();
  const auto starts = std::find(messages.begin(), messages.end(), "drawing starts");
  ASSERT_NE(starts, messages.end());
  EXPECT_EQ(*(starts + 1), "drawing ends") << "drawing headless writes nothing";
  EXPECT_TRUE(mv_test::inOrder(
      messages,
      {"DisplayManager::captureScreen(): Error! DisplayManager not started.",
       "DisplayManager not started!", "DisplayManager not started!", "DisplayManager not started!",
       "DisplayManager::startUp(): no graphics in headless mode.",
       "DisplayManager::captureScreen(): Error! No window in headless mode.",
       "DisplayManager::saveScreenshot(): Error! File name 'shot.txt' does not end in "
       ".png."}));
  EXPECT_FALSE(std::filesystem::exists("shot.png"));

  EXPECT_EQ(mv_test::startDisplay("headless:true,window_vertical_chars:0,"), -1);
  EXPECT_FALSE(display.isStarted());
  EXPECT_EQ(display.getVerticalChars(), 24) << "the refused grid is not taken";

  mv::Config::getInstance().loadConfig("headless:true,window_horizontal_pixels:-5,");
  EXPECT_EQ(display.startUp(), -1);

  mv::Config::getInstance().loadConfig(
      "headless:true,window_horizontal_pixels:1024,window_vertical_chars:24,");
  EXPECT_EQ(display.startUp(), 0);
  EXPECT_EQ(display.startUp(), -1);
  EXPECT_TRUE(display.isStarted());
  display.shutDown();
  setenv("DISPLAY", ":4711", 1);
  mv::Config::getInstance().loadConfig("headless:false,");
  EXPECT_EQ(display.startUp(), -1) << "no display server fails with a reason, the program lives";
  EXPECT_FALSE(display.isStarted());

  EXPECT_TRUE(mv_test::inOrder(
      logAfterStop(),
      {"DisplayManager::startUp(): Error! A window of 1024 by 768 pixels and 100 by 0 "
       "characters can't be drawn: pixels 0 (the desktop's) to 32767, characters 1 to "
       "32767.",
       "DisplayManager::startup(): Warning! DisplayManager already started.",
       "DisplayManager::startUp(): Error! No display server at DISPLAY ':4711'.",
       "DisplayManager::startUp(): Unable to allocate window!"}));
}

TEST(DisplayManagerColours, NamedOnesBecomeOpaqueAndOthersWhiteWithAWord) {
  mv::LogManager::getInstance().setLogLevel(5);
  const std::string errors = mv_test::stderrOf([] {
    EXPECT_EQ(mv::colorToSFML(mv::YELLOW), sf::Color(255, 255, 0, 255));
    EXPECT_EQ(mv::colorToSFML(mv::CUSTOM), sf::Color::White);
    EXPECT_EQ(mv::colorToSFML(static_cast<mv::Color>(-4)), sf::Color::White);
  });
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{"colorToSFML(): Color is CUSTOM.",
                                      "colorToSFML(): Color -4 not supported."}));
}

TEST(DisplayManagerRecorder, SeesEveryCellOfStringsAsJustifiedEvenHeadless) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(
      mv_test::startDisplay("headless:true,window_horizontal_chars:16,window_vertical_chars:4,"),
      0);
  DisplayManager& display = DisplayManager::getInstance();
  mv_test::TextScreen screen(16, 4);
  display.addCellRecorder(&screen);

  display.drawString(Vector(10, 0), "HELLO", mv::LEFT, mv::RED);
  display.drawString(Vector(10, 1), "HELLO", mv::CENTER, mv::GREEN);
  display.drawString(Vector(10, 2), "HELLO", mv::RIGHT, mv::CUSTOM);
  display.drawString(Vector(10, 3), "", mv::RIGHT, mv::RED);
  display.drawString(Vector(3, 3), "EVEN", mv::CENTER, mv::YELLOW);
  display.drawCharacter(Vector(0.5f, 3.9f), '@', 1, 2, 3, 0);
  display.drawCharacter(Vector(-1, 0), 'x', mv::RED, 0);
  display.removeCellRecorder(&screen);
  display.drawCharacter(Vector(1, 3), 'z', mv::RED, 0);

  EXPECT_EQ(screen.text(),
            "          HELLO \n"
            "        HELLO   \n"
            "     HELLO      \n"
            "@EVEN           \n");
  EXPECT_EQ(screen.colors(),
            "..........11111.\n"
            "........22222...\n"
            ".....77777......\n"
            "?3333...........\n");
  EXPECT_EQ(screen.offScreen(), 1) << "the x left of the screen";
}

}  // namespace

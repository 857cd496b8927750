#include "DisplayManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Config.h"
#include "GameManager.h"
#include "LogManager.h"
#include "ScratchDirectory.h"
#include "TextScreen.h"
#include "colorToSFML.h"
#include "displayStart.h"
#include "logLines.h"

namespace {

using mv::DisplayManager;
using mv::Vector;

const char* const HEADLESS = "headless:true,";

std::string logText() {
  mv::LogManager::getInstance().shutDown();
  return mv_test::readFile("morvane.log");
}

TEST(DisplayManagerHeadless, StartsWithoutTouchingGraphicsAndDrawsNothingSilently) {
  mv_test::ScratchDirectory scratch;
  // Any contact with a display server would fail without one.
  unsetenv("DISPLAY");
  mv::LogManager::getInstance().setLogLevel(29);
  ASSERT_EQ(mv_test::startDisplay("headless:true,window_horizontal_chars:100,"), 0);
  DisplayManager& display = DisplayManager::getInstance();

  EXPECT_EQ(display.getWindow(), nullptr);
  EXPECT_EQ(display.getHorizontalChars(), 100);

  mv::LogManager::getInstance().writeLog("drawing starts");
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', mv::RED, 0), -1);
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', 1, 2, 3, 0), -1);
  EXPECT_EQ(display.drawString(Vector(1, 1), "hello", mv::CENTER, mv::RED), -1);
  EXPECT_EQ(display.swapBuffers(), -1);
  mv::LogManager::getInstance().writeLog("drawing ends");
  display.shutDown();

  const std::vector<std::string> messages = mv_test::logMessages(logText());
  const auto starts = std::find(messages.begin(), messages.end(), "drawing starts");
  ASSERT_NE(starts, messages.end());
  EXPECT_EQ(*(starts + 1), "drawing ends") << "drawing headless writes nothing";
  EXPECT_TRUE(mv_test::hasMessage(mv_test::readFile("morvane.log"),
                                  "DisplayManager::startUp(): no graphics in headless mode."));
  EXPECT_FALSE(display.isStarted());
}

TEST(DisplayManagerHeadless, DrawingBeforeTheStartScreenshotsAndCapturesAreRefusedWithAReason) {
  mv_test::ScratchDirectory scratch;
  DisplayManager& display = DisplayManager::getInstance();
  mv::LogManager::getInstance().startUp();
  EXPECT_EQ(display.saveScreenshot("shot.png"), -1);
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'a', mv::RED, 0), -1);
  EXPECT_EQ(display.drawString(Vector(1, 1), "a", mv::LEFT, mv::RED), -1);
  EXPECT_EQ(display.swapBuffers(), -1);
  mv::Config::getInstance().loadConfig(HEADLESS);
  ASSERT_EQ(display.startUp(), 0);
  EXPECT_EQ(display.saveScreenshot("shot.png"), -1);
  EXPECT_EQ(display.saveScreenshot("shot.txt"), -1);
  display.shutDown();

  const std::string log = logText();
  const std::vector<std::string> messages = mv_test::logMessages(log);
  EXPECT_EQ(std::count(messages.begin(), messages.end(), "DisplayManager not started!"), 3)
      << "every drawing call before the start says so";
  EXPECT_TRUE(mv_test::hasMessage(
      log, "DisplayManager::captureScreen(): Error! DisplayManager not started."));
  EXPECT_TRUE(mv_test::hasMessage(
      log, "DisplayManager::captureScreen(): Error! No window in headless mode."));
  EXPECT_TRUE(mv_test::hasMessage(
      log, "DisplayManager::saveScreenshot(): Error! File name 'shot.txt' does not end in .png."));
  EXPECT_FALSE(std::filesystem::exists("shot.png"));
}

TEST(DisplayManagerStartUp, RefusesAGridWithoutCellsAndASecondStart) {
  mv_test::ScratchDirectory scratch;
  DisplayManager& display = DisplayManager::getInstance();
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

  const std::string log = logText();
  EXPECT_TRUE(mv_test::hasMessage(
      log,
      "DisplayManager::startUp(): Error! A window of 1024 by 768 pixels and 80 by 0 characters "
      "can't be drawn: pixels 0 (the desktop's) to 32767, characters 1 to 32767."));
  EXPECT_TRUE(mv_test::hasMessage(
      log, "DisplayManager::startup(): Warning! DisplayManager already started."));
}

TEST(DisplayManagerCells, ConvertBetweenSpacesAndPixelsWithoutOffsets) {
  mv_test::ScratchDirectory scratch;
  mv::LogManager::getInstance().setLogLevel(30);
  ASSERT_EQ(mv_test::startDisplay(HEADLESS), 0);

  EXPECT_FLOAT_EQ(mv::charWidth(), 12.8f);
  EXPECT_FLOAT_EQ(mv::charHeight(), 32.0f);
  const Vector pixels = mv::spacesToPixels(Vector(1, 1));
  EXPECT_FLOAT_EQ(pixels.getX(), 12.8f);
  EXPECT_FLOAT_EQ(pixels.getY(), 32.0f);

  const Vector there(17.25f, -3.5f);
  const Vector back = mv::pixelsToSpaces(mv::spacesToPixels(there));
  EXPECT_NEAR(back.getX(), there.getX(), 1e-5);
  EXPECT_NEAR(back.getY(), there.getY(), 1e-5);
  DisplayManager::getInstance().shutDown();

  const std::string log = logText();
  EXPECT_TRUE(
      mv_test::hasMessage(log, "spacesToPixels(int): spaces (1.00,1.00) = pixels (12.80,32.00)"));
  EXPECT_TRUE(
      mv_test::hasMessage(log, "pixelsToSpaces(): pixels (220.80,-112.00) = spaces (17.25,-3.50)"));
}

TEST(DisplayManagerRecorder, SeesEveryCellOfStringsAsJustifiedEvenHeadless) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(
      mv_test::startDisplay("headless:true,window_horizontal_chars:16,window_vertical_chars:4,"),
      0);
  DisplayManager& display = DisplayManager::getInstance();
  mv_test::TextScreen screen(16, 4);
  display.setCellRecorder(&screen);

  display.drawString(Vector(10, 0), "HELLO", mv::LEFT, mv::RED);
  display.drawString(Vector(10, 1), "HELLO", mv::CENTER, mv::GREEN);
  display.drawString(Vector(10, 2), "HELLO", mv::RIGHT, mv::CUSTOM);
  display.drawString(Vector(10, 3), "", mv::RIGHT, mv::RED);
  display.drawString(Vector(3, 3), "EVEN", mv::CENTER, mv::YELLOW);
  display.drawCharacter(Vector(0.5f, 3.9f), '@', 1, 2, 3, 0);
  display.drawCharacter(Vector(-1, 0), 'x', mv::RED, 0);
  display.setCellRecorder(nullptr);
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

TEST(ColorToSFML, GivesTheColourOpaqueAndWhiteWithALineForTheRest) {
  mv_test::ScratchDirectory scratch;
  mv::LogManager::getInstance().startUp();
  mv::LogManager::getInstance().setLogLevel(5);
  EXPECT_EQ(mv::colorToSFML(mv::YELLOW), sf::Color(255, 255, 0, 255));
  EXPECT_EQ(mv::colorToSFML(mv::CUSTOM), sf::Color::White);
  EXPECT_EQ(mv::colorToSFML(static_cast<mv::Color>(-4)), sf::Color::White);
  const std::string log = logText();
  EXPECT_TRUE(mv_test::hasMessage(log, "colorToSFML(): Color is CUSTOM."));
  EXPECT_TRUE(mv_test::hasMessage(log, "colorToSFML(): Color -4 not supported."));
}

TEST(GameManagerWithDisplay, StartsAndStopsTheDisplayInItsPlace) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "headless:true,");
  mv::LogManager::getInstance().setLogLevel(1);
  mv::GameManager& game = mv::GameManager::getInstance();
  ASSERT_EQ(game.startUp(), 0);
  EXPECT_TRUE(DisplayManager::getInstance().isStarted());
  game.shutDown();
  EXPECT_FALSE(DisplayManager::getInstance().isStarted());

  EXPECT_EQ(mv_test::missingInOrder(mv_test::logFileMessages(),
                                    {"Log Manager started.", "Display manager started.",
                                     "GameManager successfully started.", "Display manager stopped",
                                     "** Game engine stopped **"}),
            "");
}

TEST(DisplayManagerStartUp, WithoutADisplayServerFailsWithAReasonInsteadOfEndingTheProgram) {
  mv_test::ScratchDirectory scratch;
  setenv("DISPLAY", ":4711", 1);
  EXPECT_EQ(mv_test::startDisplay(""), -1);
  EXPECT_FALSE(DisplayManager::getInstance().isStarted());
  const std::string log = logText();
  EXPECT_TRUE(mv_test::hasMessage(
      log, "DisplayManager::startUp(): Error! No display server at DISPLAY ':4711'."));
  EXPECT_TRUE(mv_test::hasMessage(log, "DisplayManager::startUp(): Unable to allocate window!"));
}

}  // namespace

// Real key presses and mouse clicks, sent to a real window by the X server's
// test extension, reach objects as the engine's events.
#include <gtest/gtest.h>
#include <SFML/Graphics/RenderWindow.hpp>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "DisplayManager.h"
#include "InputManager.h"
#include "Keyboard.h"
#include "RecordingObject.h"
#include "WorldTest.h"
#include "displayStart.h"

namespace {

using mv_test::RecordingObject;

class InputWindowTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    ASSERT_EQ(mv_test::startDisplay("window_horizontal_chars:40,window_vertical_chars:12,"
                                    "window_horizontal_pixels:480,window_vertical_pixels:384,"
                                    "window_style:none,"),
              0);
    ASSERT_EQ(mv::InputManager::getInstance().startUp(), 0);
    listener = new RecordingObject("listener");
    listener->registerInterest("mv-keyboard");
    listener->registerInterest("mv-mouse");
  }
  void TearDown() override {
    mv::InputManager::getInstance().shutDown();
    WorldTest::TearDown();
    mv::DisplayManager::getInstance().shutDown();
  }

  // Runs xdotool with these arguments; false if it could not.
  static bool xdotool(const std::string& arguments) {
    return std::system(("xdotool " + arguments).c_str()) == 0;
  }

  static std::string windowId() {
    return std::to_string(mv::DisplayManager::getInstance().getWindow()->getSystemHandle());
  }

  // Frames of input until `wanted` has arrived, or about two seconds have passed.
  bool receive(const std::string& wanted) {
    for (int frame = 0; frame < 200; frame++) {
      mv::InputManager::getInstance().getInput();
      const auto& seen = listener->received;
      if (std::find(seen.begin(), seen.end(), wanted) != seen.end()) {
        return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  RecordingObject* listener = nullptr;
};

TEST_F(InputWindowTest, RealKeysAndClicksArriveAsEngineEvents) {
  ASSERT_TRUE(xdotool("windowfocus --sync " + windowId()));
  const std::string a = std::to_string(mv::Keyboard::A);

  ASSERT_TRUE(xdotool("keydown a"));
  EXPECT_TRUE(receive("key " + a + " pressed"));
  EXPECT_TRUE(receive("key " + a + " down")) << "a held key is reported every frame";
  ASSERT_TRUE(xdotool("keyup a"));
  EXPECT_TRUE(receive("key " + a + " released"));

  ASSERT_TRUE(xdotool("mousemove --window " + windowId() + " 120 96 click 1"));
  EXPECT_TRUE(receive("mouse clicked 0 at (10,3)")) << "12 by 32 pixels a cell";
}

}  // namespace

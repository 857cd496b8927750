// Rustline's own window on the screen it finds, read back from the X server.
// The build runs this case on screens of 1920 by 1080, 1280 by 1024 and 1366
// by 768 pixels.
#include <gtest/gtest.h>

#include <SFML/Graphics/RenderWindow.hpp>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>
#include <thread>

#include "DisplayManager.h"
#include "EventMouse.h"
#include "InputManager.h"
#include "RecordingObject.h"
#include "WorldTest.h"
#include "displayStart.h"
#include "windowOnDesktop.h"

// Last: Xlib defines macros that would clash with names in SFML's headers.
#include <X11/Xlib.h>

namespace {

using mv::Vector;

class RustlineWindow : public mv_test::WorldTest {};

TEST_F(RustlineWindow, LiesWhollyOnTheScreenWithItsCellsWhereAClickFindsThem) {
  scratch.write("mv-config.txt",
                mv_test::readFile(std::string(RUSTLINE_DATA) + "/play/mv-config.txt"));
  ASSERT_EQ(mv_test::startDisplay(""), 0);
  ASSERT_EQ(mv::InputManager::getInstance().startUp(), 0);
  const Window window = mv::DisplayManager::getInstance().getWindow()->getSystemHandle();

  Display* x = XOpenDisplay(nullptr);
  ASSERT_NE(x, nullptr);
  XSync(x, False);
  XWindowAttributes shown;
  XGetWindowAttributes(x, window, &shown);
  Window child;
  XTranslateCoordinates(x, window, DefaultRootWindow(x), 0, 0, &shown.x, &shown.y, &child);
  const int screen_width = DisplayWidth(x, DefaultScreen(x));
  const int screen_height = DisplayHeight(x, DefaultScreen(x));
  XCloseDisplay(x);
  SCOPED_TRACE(testing::Message() << "a screen of " << screen_width << " by " << screen_height);
  EXPECT_TRUE(shown.x >= 0 && shown.y >= 0 && shown.x + shown.width <= screen_width &&
              shown.y + shown.height <= screen_height)
      << shown.width << " by " << shown.height << " at " << shown.x << ", " << shown.y;
  EXPECT_EQ(sf::Vector2i(shown.width, shown.height),
            mv::fitOnDesktop({1570, 960}, {157, 48}, {screen_width, screen_height}))
      << "the game's size where it fits, else shrunk to whole cells twice as high as wide";

  auto* listener = new mv_test::RecordingObject("listener");
  listener->registerInterest("mv-mouse");
  Vector clicked(-1, -1);
  listener->on_event = [&](const mv::Event* event) {
    const auto* mouse = static_cast<const mv::EventMouse*>(event);
    if (mouse->getMouseAction() == mv::CLICKED) {
      clicked = mouse->getMousePosition();
    }
  };
  for (const Vector cell : {Vector(150, 45), Vector(3, 2)}) {
    const int x_at = static_cast<int>((cell.getX() + 0.5f) * static_cast<float>(shown.width) / 157);
    const int y_at = static_cast<int>((cell.getY() + 0.5f) * static_cast<float>(shown.height) / 48);
    const std::string command = "xdotool mousemove --window " + std::to_string(window) + " " +
                                std::to_string(x_at) + " " + std::to_string(y_at) + " click 1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    clicked = Vector(-1, -1);
    for (int frame = 0; frame < 100 && clicked.getX() < 0; ++frame) {
      mv::InputManager::getInstance().getInput();
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_EQ(Vector(std::floor(clicked.getX()), std::floor(clicked.getY())), cell)
        << "clicked at " << clicked.toString();
  }
  mv::InputManager::getInstance().shutDown();
  mv::DisplayManager::getInstance().shutDown();
}

}  // namespace

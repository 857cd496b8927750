#include "displayStart.h"

#include <gtest/gtest.h>

#include <SFML/Graphics/RenderWindow.hpp>
#include <filesystem>

#include "Config.h"
#include "DisplayManager.h"
#include "LogManager.h"

// Last: Xlib defines macros that would clash with names in SFML's headers.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace mv_test {

int startDisplay(const std::string& config) {
  std::error_code failed;
  std::filesystem::copy_file(MORVANE_TEST_FONT, "mv-font.ttf",
                             std::filesystem::copy_options::overwrite_existing, failed);
  if (failed) {
    ADD_FAILURE() << "cannot copy the font " << MORVANE_TEST_FONT << ": " << failed.message();
  }
  mv::Config::getInstance().loadConfig(config);
  EXPECT_EQ(mv::LogManager::getInstance().startUp(), 0);
  return mv::DisplayManager::getInstance().startUp();
}

void WindowTest::start(const std::string& config) {
  ASSERT_EQ(startDisplay(config), 0);
  mv::DisplayManager::getInstance().setBatching(GetParam());
}

std::string batchingName(const testing::TestParamInfo<bool>& info) {
  return info.param ? "batched" : "one_by_one";
}

sf::Image readWindowFromX() {
  sf::Image picture;
  Display* display = XOpenDisplay(nullptr);
  sf::RenderWindow* window = mv::DisplayManager::getInstance().getWindow();
  if (display == nullptr || window == nullptr) {
    ADD_FAILURE() << "no X server or no window to read";
    return picture;
  }
  const sf::Vector2u size = window->getSize();
  XImage* image =
      XGetImage(display, window->getSystemHandle(), 0, 0, size.x, size.y, AllPlanes, ZPixmap);
  picture.create(size.x, size.y);
  for (unsigned y = 0; image != nullptr && y < size.y; ++y) {
    for (unsigned x = 0; x < size.x; ++x) {
      const unsigned long pixel = XGetPixel(image, static_cast<int>(x), static_cast<int>(y));
      picture.setPixel(x, y, sf::Color(pixel >> 16 & 0xff, pixel >> 8 & 0xff, pixel & 0xff));
    }
  }
  if (image != nullptr) {
    XDestroyImage(image);
  }
  XCloseDisplay(display);
  return picture;
}

sf::Image captureWindow() {
  sf::Image picture;
  EXPECT_EQ(mv::DisplayManager::getInstance().captureScreen(picture), 0);
  return picture;
}

}  // namespace mv_test

#include "displayStart.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "Config.h"
#include "DisplayManager.h"
#include "LogManager.h"

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

sf::Image captureWindow() {
  sf::Image picture;
  EXPECT_EQ(mv::DisplayManager::getInstance().captureScreen(picture), 0);
  return picture;
}

}  // namespace mv_test

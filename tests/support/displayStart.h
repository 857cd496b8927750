// Starting the display in tests: the font comes from the build tree, the
// settings from the test, and the log goes to the working directory.
#pragma once

#include <gtest/gtest.h>

#include <SFML/Graphics/Image.hpp>
#include <string>

#include "ScratchDirectory.h"

namespace mv_test {

// Copies the build's font into the working directory as mv-font.ttf, loads
// `config` as the configuration text, then starts the log and the display.
// Answers what the display's startUp answers.
int startDisplay(const std::string& config);

// A window test that runs twice, with cells drawn in batches and one by one,
// in a scratch working directory.
class WindowTest : public testing::TestWithParam<bool> {
 protected:
  // Starts the display as startDisplay does, drawing the way this run asks.
  void start(const std::string& config = "");

  ScratchDirectory scratch;
};

// "batched" or "one_by_one", for the names of the two runs.
std::string batchingName(const testing::TestParamInfo<bool>& info);

// What the window will show at the next swap, read back as an image.
sf::Image captureWindow();

// What the display's window shows now, read back from the X server.
sf::Image readWindowFromX();

}  // namespace mv_test

#include "utility.h"

#include <gtest/gtest.h>

#include <sstream>

#include "logLines.h"

namespace {

// The red, green and blue that colorToRGB leaves in channels that held 9, 8 and 7.
std::vector<int> rgbOf(mv::Color color) {
  unsigned char r = 9, g = 8, b = 7;
  mv::colorToRGB(color, r, g, b);
  return {r, g, b};
}

TEST(Utility, ColoursConvertByTheTableUnknownValuesSaySoAndNumbersFormatAsAStreamWrites) {
  EXPECT_EQ(rgbOf(mv::YELLOW), (std::vector<int>{255, 255, 0}));
  EXPECT_EQ(rgbOf(mv::CUSTOM), (std::vector<int>{9, 8, 7}));

  EXPECT_EQ(mv::colorToString(mv::CUSTOM), "Unknown color");
  EXPECT_EQ(mv::solidnessToString(static_cast<mv::Solidness>(3)), "undefined");
  EXPECT_EQ(mv::locationToString(mv::BOTTOM_CENTER), "bot-center");
  EXPECT_EQ(mv::locationToString(static_cast<mv::ViewObjectLocation>(9)), "unknown");
  EXPECT_EQ(mv::toString(1.0f), "1");
  EXPECT_EQ(mv::toString(1234567.0f), "1.23457e+06");
  EXPECT_EQ(mv::toBinaryString(5), std::string(29, '0') + "101");
  EXPECT_EQ(mv::toBinaryString(0x80000000u), "1" + std::string(31, '0'));
}

TEST(Utility, CheckStreamNamesWhereAndWhatWentWrong) {
  std::istringstream stream("7");
  EXPECT_EQ(mv::checkStream("Test::read()", stream), 0);

  int value = 0;
  stream >> value >> value;
  std::istringstream bad_number("x");
  bad_number >> value;
  const std::string errors = mv_test::stderrOf([&] {
    EXPECT_EQ(mv::checkStream("Test::read()", stream), -1);
    EXPECT_EQ(mv::checkStream("Test::parse()", bad_number), -1);
  });
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{"Test::read(): Error! Stream eof.",
                                      "Test::parse(): Error! Stream fail."}));
}

}  // namespace

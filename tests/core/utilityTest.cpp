#include "utility.h"

#include <gtest/gtest.h>

#include <sstream>

#include "logLines.h"

namespace {

TEST(Utility, ColoursConvertByTheTableAndLeaveOthersAlone) {
  unsigned char r = 1, g = 2, b = 3;
  mv::colorToRGB(mv::YELLOW, r, g, b);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{255, 255, 0}));

  r = 9, g = 8, b = 7;
  mv::colorToRGB(mv::CUSTOM, r, g, b);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{9, 8, 7}));
  mv::colorToRGB(static_cast<mv::Color>(42), r, g, b);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{9, 8, 7}));

  EXPECT_EQ(mv::colorToString(mv::CUSTOM), "Unknown color");
  EXPECT_EQ(mv::colorToString(static_cast<mv::Color>(-1)), "Unknown color");
}

TEST(Utility, EnumerationsHaveNamesAndUnknownValuesSaySo) {
  EXPECT_EQ(mv::solidnessToString(static_cast<mv::Solidness>(3)), "undefined");
  EXPECT_EQ(mv::locationToString(mv::BOTTOM_CENTER), "bot-center");
  EXPECT_EQ(mv::locationToString(static_cast<mv::ViewObjectLocation>(9)), "unknown");
}

TEST(Utility, NumbersFormatAsAStreamWritesThem) {
  EXPECT_EQ(mv::toString(-42), "-42");
  EXPECT_EQ(mv::toString(1.0f), "1");
  EXPECT_EQ(mv::toString(0.1f), "0.1");
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

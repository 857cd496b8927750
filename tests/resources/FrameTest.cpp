#include "Frame.h"

#include <gtest/gtest.h>

#include "DisplayManager.h"
#include "ScratchDirectory.h"
#include "TextScreen.h"
#include "displayStart.h"

namespace {

using mv::Frame;
using mv::Vector;

TEST(Frame, FramesAreCentredSkipTheTransparentCharacterAndDrawNoMoreThanTheyHold) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(
      mv_test::startDisplay("headless:true,window_horizontal_chars:12,window_vertical_chars:5,"),
      0);
  mv_test::TextScreen screen(12, 5);
  mv::DisplayManager::getInstance().addCellRecorder(&screen);
  const Frame ship(3, 2, "/#\\\\#/");
  EXPECT_EQ(ship.draw(Vector(2, 1), mv::RED, 0), 0) << "two high: rows at half a cell";
  const Frame hollow(3, 3, "xxxx.xxxx");
  EXPECT_EQ(hollow.draw(Vector(8, 2), mv::GREEN, 'x'), 0);
  const Frame wide(2, 1, "ab");
  EXPECT_EQ(wide.draw(Vector(5.5f, 4), mv::BLUE, 0), 0) << "two wide: offsets of half a cell";
  EXPECT_EQ(Frame().draw(Vector(1, 1), mv::RED, 0), 0);
  EXPECT_EQ(Frame(3, 0, "abc").draw(Vector(1, 1), mv::RED, 0), 0);
  EXPECT_EQ(Frame(3, 2, "cdef").draw(Vector(6, 2), mv::RED, 0), 0)
      << "a text shorter than its size claims is not read past its end";
  EXPECT_EQ(screen.text(),
            " /#\\        \n"
            " \\#/ cde    \n"
            "     f  .   \n"
            "            \n"
            "     ab     \n");

  mv::DisplayManager::getInstance().removeCellRecorder(&screen);
  EXPECT_EQ(Frame(1, 1, "a").draw(Vector(1, 1), mv::RED, 0), -1)
      << "headless without a recorder nothing can be drawn";
}

}  // namespace

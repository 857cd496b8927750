#include "windowOnDesktop.h"

#include <gtest/gtest.h>

namespace {

using Size = sf::Vector2i;

TEST(WindowOnDesktop, ShrinksOnlyWhatDoesNotFitAndKeepsTheCellsProportionAndCount) {
  const struct {
    Size wanted, cells, desktop, fitted;
  } cases[] = {
      {{1570, 960}, {157, 48}, {1920, 1080}, {1570, 960}},
      {{1570, 960}, {157, 48}, {1610, 1040}, {1570, 960}},
      {{1570, 960}, {157, 48}, {1609, 1040}, {1413, 864}},
      {{1570, 960}, {157, 48}, {1610, 1039}, {1413, 864}},
      {{1570, 960}, {157, 48}, {1366, 768}, {1099, 672}},
      {{1570, 960}, {157, 48}, {1280, 1024}, {1099, 672}},
      // Cells of 12.8 by 32 pixels, and of 10 by 21, which has no smaller whole cell.
      {{1024, 768}, {80, 24}, {800, 600}, {693, 520}},
      {{1570, 1008}, {157, 48}, {1366, 768}, {1071, 688}},
      {{1570, 1008}, {157, 48}, {1000, 2000}, {960, 616}},
      {{1000, 100}, {100, 10}, {800, 600}, {700, 70}},
      {{1570, 960}, {157, 48}, {20, 20}, {1, 1}},
      {{1570, 960}, {157, 48}, {100, 81}, {1, 1}},
      // A side of 0 is the desktop's, as it is.
      {{0, 960}, {157, 48}, {1366, 768}, {1366, 960}},
      {{1570, 0}, {157, 48}, {1366, 768}, {1570, 768}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << &c - cases);
    EXPECT_EQ(mv::fitOnDesktop(c.wanted, c.cells, c.desktop), c.fitted);
  }
  EXPECT_EQ(mv::centreOnDesktop({1570, 960}, {1920, 1080}), Size(175, 60));
  EXPECT_EQ(mv::centreOnDesktop({1099, 672}, {1366, 768}), Size(133, 48));
  EXPECT_EQ(mv::centreOnDesktop({1570, 960}, {1366, 768}), Size(0, 0));
}

}  // namespace

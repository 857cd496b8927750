// The display as a person sees it: drawn into a real window, read back and
// checked pixel by pixel. Every case runs with cells drawn in batches and
// one by one, which must look the same.
#include <gtest/gtest.h>

#include <SFML/Graphics.hpp>
#include <algorithm>
#include <cstdio>

#include "DisplayManager.h"
#include "GameManager.h"
#include "LogManager.h"
#include "ScratchDirectory.h"
#include "Shape.h"
#include "displayStart.h"
#include "logLines.h"
#include "variedScreen.h"

namespace {

using mv::DisplayManager;
using mv::Vector;

const sf::Color GREEN_PAPER(0, 128, 0);
// The game's grid: cells of 8 by 16 pixels.
const char* const WHOLE_PIXEL_GRID =
    "window_horizontal_chars:157,window_vertical_chars:48,window_horizontal_pixels:1256,"
    "window_vertical_pixels:768,";

// How many pixels of the rectangle [left, right) x [top, bottom) pass `test`,
// which is handed each pixel's x and y.
template <typename Test>
int countPixels(int left, int top, int right, int bottom, Test test) {
  int count = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      count += test(x, y) ? 1 : 0;
    }
  }
  return count;
}

// Whether some pixel of the rectangle [left, right) x [top, bottom) passes `test`.
template <typename Test>
bool anyPixel(const sf::Image& picture, int left, int top, int right, int bottom, Test test) {
  return countPixels(left, top, right, bottom,
                     [&](int x, int y) { return test(picture.getPixel(x, y)); }) > 0;
}

// How many pixels differ between two pictures of the same size.
int differingPixels(const sf::Image& one, const sf::Image& other) {
  const sf::Vector2u size = one.getSize();
  return countPixels(0, 0, static_cast<int>(size.x), static_cast<int>(size.y),
                     [&](int x, int y) { return one.getPixel(x, y) != other.getPixel(x, y); });
}

bool hasRed(sf::Color c) { return c.r > 0; }

class DisplayWindow : public mv_test::WindowTest {
 protected:
  DisplayManager& display = DisplayManager::getInstance();
};

TEST_P(DisplayWindow, PutsTheCellAtOneOneWhereTheGridSaysWithItsBackgroundOffset) {
  start("window_background_color:blue,");
  ASSERT_NE(display.getWindow(), nullptr);
  EXPECT_EQ(display.getWindow()->getSize(), sf::Vector2u(1024, 768));
  // A sheet in a colour that no cell draws, so the background shows.
  sf::RectangleShape sheet(sf::Vector2f(1024, 768));
  sheet.setFillColor(GREEN_PAPER);
  ASSERT_EQ(display.draw(sheet), 0);
  display.drawCharacter(Vector(1, 1), ' ', mv::RED, 0);
  const sf::Image blank = mv_test::captureWindow();

  // The background covers x 11.52 to 24.32 and y 38.4 to 70.4: the pixels whose centres lie inside.
  EXPECT_EQ(blank.getPixel(12, 38), sf::Color::Blue);
  EXPECT_EQ(blank.getPixel(23, 69), sf::Color::Blue);
  EXPECT_EQ(blank.getPixel(11, 38), GREEN_PAPER);
  EXPECT_EQ(blank.getPixel(12, 37), GREEN_PAPER);
  EXPECT_EQ(blank.getPixel(24, 50), GREEN_PAPER);
  EXPECT_EQ(blank.getPixel(20, 70), GREEN_PAPER);

  display.swapBuffers();
  display.drawCharacter(Vector(1, 1), 'H', mv::RED, 0);
  const sf::Image letter = mv_test::captureWindow();
  // The glyph hangs from the cell's corner (12.8, 32): its ink stands between
  // the corner and the baseline one character size (25) below it.
  const auto red = [](sf::Color p) { return p == sf::Color::Red; };
  EXPECT_FALSE(anyPixel(letter, 0, 0, 13, 100, red) || anyPixel(letter, 0, 0, 60, 36, red));
  EXPECT_TRUE(anyPixel(letter, 0, 0, 17, 100, red)) << "the ink begins 13 to 16 across";
  EXPECT_TRUE(anyPixel(letter, 0, 0, 60, 41, red)) << "and 36 to 40 down";
  EXPECT_TRUE(anyPixel(letter, 0, 56, 60, 57, red)) << "the baseline lies at 32 + 25";
  EXPECT_FALSE(anyPixel(letter, 0, 57, 60, 100, red));
  EXPECT_EQ(letter.getPixel(5, 5), sf::Color::Blue) << "swapBuffers cleared to the background";
}

TEST_P(DisplayWindow, DrawsEachColourAsItsValuesAndALaterCellOverAnEarlierOneAndItsOverhang) {
  start("");
  for (int c = mv::BLACK; c <= mv::WHITE; ++c) {
    display.drawCharacter(Vector(static_cast<float>(2 * c), 2), 'M', static_cast<mv::Color>(c), 0);
  }
  const sf::Image picture = mv_test::captureWindow();
  const sf::Color expected[] = {sf::Color::Black,  sf::Color::Red,  sf::Color::Green,
                                sf::Color::Yellow, sf::Color::Blue, sf::Color::Magenta,
                                sf::Color::Cyan,   sf::Color::White};
  for (int c = mv::BLACK; c <= mv::WHITE; ++c) {
    const int left = static_cast<int>(2 * c * 12.8f);
    const auto seen = [&](sf::Color p) {
      return p != sf::Color::Black && (c == mv::BLACK || p == expected[c]);
    };
    EXPECT_EQ(anyPixel(picture, left, 64, left + 20, 96, seen), c != mv::BLACK) << "colour " << c;
  }

  display.swapBuffers();
  display.drawCharacter(Vector(1, 1), 'W', mv::RED, 0);
  display.drawCharacter(Vector(1, 1), 'O', mv::GREEN, 0);
  display.drawCharacter(Vector(5, 1), 'W', mv::RED, 0);
  display.drawCharacter(Vector(6, 1), ' ', mv::GREEN, 0);
  display.drawCharacter(Vector(9, 1), 'W', 255, 0, 0, 0);
  display.drawCharacter(Vector(9.5f, 1.25f), ' ', 0, 0, 0, 0);
  const sf::Image layered = mv_test::captureWindow();

  // Each background covers x from 0.9 cell to 1.9 cells and y from 1.2 to 2.2 cells past the grid.
  EXPECT_FALSE(anyPixel(layered, 12, 38, 24, 70, hasRed)) << "the earlier W is painted over";
  EXPECT_TRUE(anyPixel(layered, 12, 38, 24, 70, [](sf::Color p) { return p.g == 255; }));
  EXPECT_FALSE(anyPixel(layered, 76, 38, 88, 70, hasRed)) << "the overhang of W into cell 6";
  EXPECT_TRUE(anyPixel(layered, 64, 38, 76, 70, hasRed)) << "the W of cell 5 itself";
  EXPECT_FALSE(anyPixel(layered, 121, 46, 133, 78, hasRed)) << "half a cell over, half covered";
  EXPECT_TRUE(anyPixel(layered, 115, 38, 121, 46, hasRed));
}

// Cells half a cell off the grid, over the varied screen: every cell overlaps four others.
void drawOffGrid() {
  mv_scenes::drawVariedScreen(3);
  DisplayManager::getInstance().drawString(Vector(3.5f, 4.5f), "Over the grid, half a cell off",
                                           mv::LEFT, mv::YELLOW);
}

// Cells under a shape, the shape, then cells of every named colour over it.
void drawCellsAroundAShape() {
  mv_scenes::drawVariedScreen(3);
  mv::Shape shape;
  shape.setSize(60.0f);
  shape.setColorRGB(30, 160, 220);
  shape.draw(Vector(12, 6));
  for (int c = mv::BLACK; c <= mv::WHITE; ++c) {
    DisplayManager::getInstance().drawString(Vector(10, 5.0f + static_cast<float>(c)), "#over#",
                                             mv::LEFT, static_cast<mv::Color>(c));
  }
}

const struct Scene {
  const char* name;
  void (*draw)();
} SCENES[] = {
    {"varied", [] { mv_scenes::drawVariedScreen(3); }},
    {"off the grid", drawOffGrid},
    // A turned cell makes the batch keep each background.
    {"a turned cell",
     [] {
       drawOffGrid();
       DisplayManager::getInstance().drawCharacter(Vector(10.3f, 7.7f), '#', mv::CYAN, 30.0f);
     }},
    // A figure in the window before the cells makes them keep their backgrounds too.
    {"a figure under the cells",
     [] {
       sf::CircleShape figure(200.0f);
       figure.setFillColor(sf::Color(200, 120, 40));
       DisplayManager::getInstance().draw(figure);
       drawOffGrid();
     }},
    {"cells around a shape", drawCellsAroundAShape},
    // Batching stopped mid-frame keeps the cells drawn before it, composed or batched.
    {"batching stopped mid-frame",
     [] {
       mv_scenes::drawVariedScreen(3);
       DisplayManager::getInstance().setBatching(false);
       DisplayManager::getInstance().drawString(Vector(3, 4), "Drawn alone", mv::LEFT, mv::YELLOW);
     }},
    // A frame shown, then one where only a few cells differ from it.
    {"a few changed cells",
     [] {
       mv_scenes::drawSlowlyChangingScreen(0, 50);
       DisplayManager::getInstance().swapBuffers();
       mv_scenes::drawSlowlyChangingScreen(1, 50);
     }},
};

// The ways of drawing cells, each of which must look like drawing them one by one.
enum Way { ONE_BY_ONE, BATCH_OF_QUADS, COMPOSED };

sf::Image drawnAs(Way way, void (*scene)()) {
  DisplayManager& display = DisplayManager::getInstance();
  display.setBatching(way != ONE_BY_ONE);
  display.setComposing(way == COMPOSED);
  scene();
  const sf::Image picture = mv_test::captureWindow();
  display.swapBuffers();
  return picture;
}

int mostDiffering(const sf::Image& picture) {
  return static_cast<int>(picture.getSize().x * picture.getSize().y / 1000);
}

TEST(DisplayWindowBatches, LookLikeCellsDrawnOneByOne) {
  // Cells of whole pixels, and the default grid's of 12.8 by 32.
  for (const char* grid : {WHOLE_PIXEL_GRID, ""}) {
    mv_test::ScratchDirectory scratch;
    ASSERT_EQ(mv_test::startDisplay(grid), 0);
    for (const Scene& scene : SCENES) {
      const sf::Image alone = drawnAs(ONE_BY_ONE, scene.draw);
      for (Way way : {BATCH_OF_QUADS, COMPOSED}) {
        EXPECT_LE(differingPixels(alone, drawnAs(way, scene.draw)), mostDiffering(alone))
            << "grid '" << grid << "', " << scene.name << ", way " << way;
      }
    }
    DisplayManager::getInstance().shutDown();
    mv::LogManager::getInstance().shutDown();
  }
}

// A picture that nothing covers goes into the window without the graphics
// card: what the window shows after each swap is read back from the X server.
TEST(DisplayWindowBatches, ShowPicturesAloneInTheWindowAsCaptured) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(mv_test::startDisplay(WHOLE_PIXEL_GRID), 0);
  DisplayManager& display = DisplayManager::getInstance();
  const sf::Image captured[] = {
      drawnAs(COMPOSED, [] { mv_scenes::drawSlowlyChangingScreen(0, 50); }),
      drawnAs(COMPOSED, [] { mv_scenes::drawSlowlyChangingScreen(1, 50); })};
  // The whole picture, the same again, then a few cells changed; last, a frame without cells.
  for (int frame : {0, 0, 1}) {
    mv_scenes::drawSlowlyChangingScreen(frame, 50);
    display.swapBuffers();
    const sf::Image shown = mv_test::readWindowFromX();
    EXPECT_LE(differingPixels(captured[frame], shown), mostDiffering(shown)) << "frame " << frame;
  }
  display.swapBuffers();
  EXPECT_EQ(mv_test::readWindowFromX().getPixel(600, 300), sf::Color::Black);
  display.shutDown();
  mv::LogManager::getInstance().shutDown();
}

TEST_P(DisplayWindow, SavesWhatTheNextSwapShowsAsAPng) {
  start(
      "window_horizontal_pixels:320,window_vertical_pixels:96,window_horizontal_chars:20,"
      "window_vertical_chars:4,window_background_color:white,");
  display.drawString(Vector(2, 1), "Rustline", mv::LEFT, mv::MAGENTA);
  ASSERT_EQ(display.saveScreenshot("screen.png"), 0);
  EXPECT_EQ(display.saveScreenshot("no-such-folder/screen.png"), -1);

  sf::Image saved;
  ASSERT_TRUE(saved.loadFromFile("screen.png"));
  EXPECT_EQ(saved.getSize(), sf::Vector2u(320, 96));
  EXPECT_EQ(saved.getPixel(0, 0), sf::Color::White);
  EXPECT_TRUE(
      anyPixel(saved, 32, 24, 160, 48, [](sf::Color p) { return p == sf::Color::Magenta; }));
  mv::LogManager::getInstance().shutDown();
  EXPECT_TRUE(mv_test::logged(
      "DisplayManager::saveScreenshot(): Error! Unable to write 'no-such-folder/screen.png'."));
}

INSTANTIATE_TEST_SUITE_P(BatchedAndOneByOne, DisplayWindow, testing::Bool(), mv_test::batchingName);

TEST(DisplayWindowStartUp, TakesTheDesktopsSizeForZeroPixelsAndHoldsOddFontScales) {
  mv_test::ScratchDirectory scratch;
  ASSERT_EQ(
      mv_test::startDisplay("window_horizontal_pixels:0,window_vertical_pixels:0,font_scale:-3,"),
      0);
  DisplayManager& display = DisplayManager::getInstance();
  const sf::VideoMode desktop = sf::VideoMode::getDesktopMode();
  EXPECT_EQ(display.getWindow()->getSize(), sf::Vector2u(desktop.width, desktop.height));
  EXPECT_FLOAT_EQ(mv::charWidth(), static_cast<float>(desktop.width) / 80);
  EXPECT_EQ(display.drawCharacter(Vector(1, 1), 'x', mv::RED, 0), 0);
  display.shutDown();
  EXPECT_EQ(display.getWindow(), nullptr);
  mv::LogManager::getInstance().shutDown();
  const float cell = std::min(desktop.width / 80.0f, desktop.height / 24.0f);
  char expected[128];
  std::snprintf(expected, sizeof expected,
                "DisplayManager::startUp(): Warning! Font scale -3.00 gives characters of %.2f "
                "pixels; drawing them at 1.",
                -3 * cell);
  EXPECT_TRUE(mv_test::logged(expected));
}

// A font that isn't in the game's folder is taken from the system; one that
// is there but is no font stops the game from starting.
TEST(DisplayWindowStartUp, AFontMissingIsTakenFromTheSystemAndABrokenOneStopsTheStart) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "font_file:no-such-font.ttf,");
  mv::GameManager& game = mv::GameManager::getInstance();
  EXPECT_EQ(game.startUp(), 0);
  game.shutDown();
  EXPECT_TRUE(mv_test::logged(
      "DisplayManager::startUp(): Font 'no-such-font.ttf' is not in the working directory; "
      "taking '/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf'."));

  scratch.write("mv-config.txt", "font_file:not-a-font.ttf,");
  scratch.write("not-a-font.ttf", "no glyphs here");
  EXPECT_EQ(game.startUp(), -1);
  EXPECT_FALSE(DisplayManager::getInstance().isStarted());
  game.shutDown();
  EXPECT_TRUE(mv_test::inOrder(
      mv_test::logFileMessages(),
      {"DisplayManager::startUp(): Error! Unable to open font from file 'not-a-font.ttf'.",
       "GameManager::startUp(): Error! Starting display manager."}));
}

}  // namespace

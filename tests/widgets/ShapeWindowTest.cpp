// Figures drawn into a real window, read back pixel by pixel.
#include <gtest/gtest.h>
#include <SFML/Graphics.hpp>

#include "DisplayManager.h"
#include "Shape.h"
#include "displayStart.h"

namespace {

using mv::DisplayManager;
using mv::Shape;
using mv::Vector;

const sf::Color LEAF(10, 200, 30);

Shape leafShape(int type) {
  Shape shape;
  shape.setType(type);
  shape.setSize(10);
  shape.setColorRGB(LEAF.r, LEAF.g, LEAF.b);
  return shape;
}

class ShapeWindow : public mv_test::WindowTest {
 protected:
  void SetUp() override { start(); }
};

// At cell (10,5), whose corner is pixel (128,160), each figure of size 10 stands in its own place.
TEST_P(ShapeWindow, DrawsEachFigureWhereAndInTheColourItShouldOverEarlierCellsUnderLater) {
  leafShape(Shape::CIRCLE).draw(Vector(10, 5));
  const sf::Image circle = mv_test::captureWindow();
  EXPECT_EQ(circle.getPixel(133, 165), LEAF) << "radius 10 from (123,155)";
  EXPECT_EQ(circle.getPixel(141, 165), LEAF);
  EXPECT_EQ(circle.getPixel(146, 165), sf::Color::Black);
  DisplayManager::getInstance().swapBuffers();

  leafShape(Shape::SQUARE).draw(Vector(10, 5));
  const sf::Image square = mv_test::captureWindow();
  EXPECT_EQ(square.getPixel(133, 161), LEAF) << "turned 45 degrees about (133,154.3)";
  EXPECT_EQ(square.getPixel(128, 161), sf::Color::Black);
  DisplayManager::getInstance().swapBuffers();

  Shape faint = leafShape(Shape::TRIANGLE);
  faint.setOpacity(128);
  faint.draw(Vector(10, 5));
  const sf::Image triangle = mv_test::captureWindow();
  const sf::Color half = triangle.getPixel(128, 161);
  EXPECT_NEAR(half.g, 100, 1) << "half opaque over black";
  EXPECT_EQ(triangle.getPixel(128, 152), sf::Color::Black) << "radius 5 about (128,160)";
  DisplayManager::getInstance().swapBuffers();

  leafShape(Shape::UNDEFINED).draw(Vector(10, 5));
  const sf::Image none = mv_test::captureWindow();
  for (const sf::Vector2u lit :
       {sf::Vector2u(133, 165), sf::Vector2u(133, 161), sf::Vector2u(128, 161)}) {
    EXPECT_EQ(none.getPixel(lit.x, lit.y), sf::Color::Black) << "the undefined type draws nothing";
  }

  DisplayManager& display = DisplayManager::getInstance();
  display.swapBuffers();
  display.drawCharacter(Vector(10, 5), ' ', mv::RED, 0);
  leafShape(Shape::CIRCLE).draw(Vector(10, 5));
  display.drawCharacter(Vector(12, 5), ' ', mv::RED, 0);
  leafShape(Shape::CIRCLE).draw(Vector(12, 4));
  display.drawCharacter(Vector(12, 4), ' ', mv::RED, 0);
  const sf::Image picture = mv_test::captureWindow();
  EXPECT_EQ(picture.getPixel(133, 170), LEAF) << "the circle over the cell before it";
  // The circle's centre is (158.6,133); the cell at (12,4) covers pixels
  // 152.32 to 165.12 across and 134.4 to 166.4 down.
  EXPECT_EQ(picture.getPixel(156, 138), sf::Color::Black) << "the cell after the circle";
  EXPECT_EQ(picture.getPixel(151, 133), LEAF) << "the circle beside that cell";
}

INSTANTIATE_TEST_SUITE_P(BatchedAndOneByOne, ShapeWindow, testing::Bool(), mv_test::batchingName);

}  // namespace

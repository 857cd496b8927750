#include "Shape.h"

#include <gtest/gtest.h>

#include "DisplayManager.h"
#include "LogManager.h"
#include "ScratchDirectory.h"
#include "displayStart.h"
#include "logLines.h"

namespace {

using mv::Shape;

TEST(Shape, KeepsItsTypeAgainstUnknownOnesAndDrawsNothingHeadless) {
  mv_test::ScratchDirectory scratch;
  mv::LogManager::getInstance().setLogLevel(5);
  ASSERT_EQ(mv_test::startDisplay("headless:true,"), 0);
  Shape shape;
  EXPECT_EQ(shape.toString(), "circle, size 24.000000, White, 255")
      << "twice the whole pixels of a 12.8 by 32 cell";
  shape.setType(Shape::TRIANGLE);
  shape.setType(3);
  shape.setType(-2);
  EXPECT_EQ(shape.getType(), Shape::TRIANGLE);
  shape.setType(Shape::SQUARE);
  shape.draw(mv::Vector(3, 3));
  mv::DisplayManager::getInstance().shutDown();
  mv::LogManager::getInstance().shutDown();
  const std::vector<std::string> messages = mv_test::logFileMessages();
  EXPECT_TRUE(mv_test::inOrder(messages, {"Shape::setType(): Unknown shape type 3. Ignoring.",
                                          "Shape::setType(): Unknown shape type -2. Ignoring.",
                                          "Shape::draw(): DisplayManager window not defined."}));
}

}  // namespace

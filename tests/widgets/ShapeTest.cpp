#include "Shape.h"

#include <gtest/gtest.h>

#include "logLines.h"

namespace {

using mv::Shape;

TEST(Shape, StartsAsAWhiteCircleOfTwoCellWidthsAndKeepsItsTypeAgainstUnknownOnes) {
  Shape shape;
  EXPECT_EQ(shape.toString(), "circle, size 24.000000, White, 255")
      << "twice the whole pixels of a 12.8 by 32 cell";
  const std::string errors = mv_test::stderrOf([&] {
    shape.setType(Shape::TRIANGLE);
    shape.setType(3);
    shape.setType(-2);
  });
  EXPECT_EQ(shape.getType(), Shape::TRIANGLE);
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{"Shape::setType(): Unknown shape type 3. Ignoring.",
                                      "Shape::setType(): Unknown shape type -2. Ignoring."}));
}

}  // namespace

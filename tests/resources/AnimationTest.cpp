#include "Animation.h"

#include <gtest/gtest.h>

#include "Sprite.h"
#include "logLines.h"

namespace {

using mv::Animation;
using mv::Frame;
using mv::Sprite;

TEST(Sprite, HoldsAtMostItsFramesAndAnswersEmptyOutsideThem) {
  Sprite sprite(3);
  for (int i = 0; i < 3; i++) {
    EXPECT_EQ(sprite.addFrame(Frame(1, 1, std::to_string(i))), 0);
  }
  EXPECT_EQ(sprite.addFrame(Frame(1, 1, "x")), -1);
  EXPECT_EQ(sprite.getFrame(2).getString(), "2");
  EXPECT_EQ(sprite.getFrame(3).getString(), "");
  EXPECT_EQ(sprite.getFrame(-1).getString(), "");

  EXPECT_TRUE(mv_test::hasMessage(
      mv_test::stderrOf([] { EXPECT_EQ(Sprite(-4).addFrame(Frame(1, 1, "x")), -1); }),
      "Sprite::Sprite(): Error! Unable to allocate -4 frames."));
}

TEST(Animation, AdvancesAtTheSpritesPaceWrapsAroundAndTakesTheSpritesBoxCentred) {
  Sprite sprite(2);
  sprite.addFrame(Frame(1, 1, "a"));
  sprite.addFrame(Frame(1, 1, "b"));
  sprite.setSlowdown(3);
  sprite.setWidth(4);
  sprite.setHeight(3);
  sprite.setLabel("ship");
  Animation animation;
  animation.setSprite(&sprite);
  std::vector<int> shown;
  for (int draw = 0; draw < 7; draw++) {
    shown.push_back(animation.getIndex());
    animation.draw(mv::Vector(5, 5));
  }
  EXPECT_EQ(shown, (std::vector<int>{0, 0, 0, 1, 1, 1, 0}));

  animation.setSlowdownCount(-1);
  for (int draw = 0; draw < 10; draw++) {
    animation.draw(mv::Vector(5, 5));
  }
  EXPECT_EQ(animation.getIndex(), 0) << "a count of -1 freezes the animation";

  EXPECT_EQ(animation.getBox(), mv::Box(mv::Vector(-2, -1.5f), 4, 3));

  animation.setSprite(nullptr);
  EXPECT_EQ(animation.getIndex(), 0);
  EXPECT_EQ(animation.getName(), "ship") << "the name stays for the record";
  EXPECT_EQ(animation.draw(mv::Vector()), 0);
}

}  // namespace

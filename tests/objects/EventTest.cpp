#include <gtest/gtest.h>

#include "EventCollision.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventNetworkAccept.h"
#include "EventNetworkClose.h"
#include "EventStep.h"
#include "EventView.h"
#include "logLines.h"

namespace {

TEST(Event, EachClassBearsItsLabelAndDefaults) {
  EXPECT_EQ(mv::Event().getType(), "mv-undefined");
  EXPECT_EQ(mv::EventStep(4).getType(), "mv-step");
  EXPECT_EQ(mv::EventStep(4).getStepCount(), 4);
  EXPECT_EQ(mv::EventCollision(nullptr, nullptr, mv::Vector(1, 2)).getType(), "mv-collision");
  EXPECT_EQ(mv::EventView("Points", 10, true).getType(), "mv-view");
  const mv::EventMouse mouse;
  EXPECT_EQ(mouse.getType(), "mv-mouse");
  EXPECT_EQ(mouse.getMouseAction(), -1);
  EXPECT_EQ(mouse.getMouseButton(), -1);
  const mv::EventKeyboard keyboard;
  EXPECT_EQ(keyboard.getType(), "mv-keyboard");
  EXPECT_EQ(keyboard.getKey(), -1);
  EXPECT_EQ(keyboard.getKeyboardAction(), -1);
  EXPECT_EQ(mv::EventNetworkClose().getNetworkType(), 2);
  EXPECT_EQ(mv::EventNetworkClose().getType(), "mv-network-close");
}

TEST(Event, AnUndefinedNetworkTypeIsLoggedAndStoredAsUndefined) {
  testing::internal::CaptureStderr();
  const mv::EventNetworkAccept accept(4);
  EXPECT_TRUE(mv_test::hasMessage(testing::internal::GetCapturedStderr(),
                                  "EventNetwork::setLabel(): Undefined type (4)."));
  EXPECT_EQ(accept.getNetworkType(), -1);
  EXPECT_EQ(accept.getType(), "mv-network-accept") << "the label stays";
  EXPECT_EQ(accept.getSocket(), -1);
  EXPECT_TRUE(mv::isNetworkEvent("mv-network-sync"));
  EXPECT_FALSE(mv::isNetworkEvent("mv-network-"));
}

}  // namespace

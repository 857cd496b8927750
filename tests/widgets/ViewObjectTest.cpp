#include "ViewObject.h"

#include <gtest/gtest.h>

#include "Attribute.h"
#include "Button.h"
#include "DisplayManager.h"
#include "EventMouse.h"
#include "EventView.h"
#include "LogManager.h"
#include "TextScreen.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "displayStart.h"
#include "logLines.h"
#include "utility.h"

namespace {

using mv::Vector;
using mv::ViewObject;

class ViewObjectTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    ASSERT_EQ(mv_test::startDisplay("headless:true,window_horizontal_chars:20,"
                                    "window_vertical_chars:5,"),
              0);
    mv::DisplayManager::getInstance().addCellRecorder(&screen);
    mv::LogManager::getInstance().setFlush(true);
  }
  void TearDown() override {
    mv::DisplayManager::getInstance().removeCellRecorder(&screen);
    WorldTest::TearDown();
  }
  mv_test::TextScreen screen{20, 5};
};

TEST_F(ViewObjectTest, LocationsPlaceTheObjectAndTheBorderMovesIt) {
  auto* hud = new ViewObject;

  const struct {
    mv::ViewObjectLocation location;
    Vector bordered;
    Vector plain;
  } places[] = {
      {mv::TOP_CENTER, Vector(40, 1), Vector(40, 0)},
      {mv::CENTER_LEFT, Vector(80.0f / 6, 12), Vector(80.0f / 6, 11)},
      {mv::BOTTOM_RIGHT, Vector(80.0f * 5 / 6, 22), Vector(80.0f * 5 / 6, 23)},
  };
  for (const auto& place : places) {
    hud->setBorder(true);
    hud->setLocation(place.location);
    EXPECT_EQ(hud->getPosition(), place.bordered) << mv::locationToString(place.location);
    hud->setBorder(false);
    EXPECT_EQ(hud->getPosition(), place.plain) << mv::locationToString(place.location);
  }

  hud->setLocation(static_cast<mv::ViewObjectLocation>(9));
  hud->setLocation(static_cast<mv::ViewObjectLocation>(-1));
  EXPECT_TRUE(
      mv_test::logged("ViewObject::setLocation(): Warning! Location out of range (9). Ignored."));
  EXPECT_EQ(hud->getPosition(), places[2].plain);

  hud->setPosition(Vector(3, 3));
  EXPECT_EQ(hud->getLocation(), -1);
  hud->setBorder(true);
  EXPECT_EQ(hud->getPosition(), Vector(3, 3)) << "a placed object stays put";
}

TEST_F(ViewObjectTest, DrawsInABorderAtItsPlaceOnScreenWhereverTheViewIsAndFollowsItsLabel) {
  auto* label = new ViewObject;
  label->setViewString("a");
  label->setDrawValue(false);
  label->setPosition(Vector(4, 2));
  auto* score = new ViewObject;
  score->setViewString("Score");
  score->setValue(7);
  score->setBorder(false);
  score->setPosition(Vector(14, 0));

  mv::WorldManager::getInstance().setView(mv::Box(Vector(30, 10), 20, 5));
  mv::WorldManager::getInstance().draw();
  EXPECT_EQ(screen.text(),
            "           Score 7  \n"
            "   ---              \n"
            "  | a |             \n"
            "   ---              \n"
            "                    \n");

  // View events set or add to the value of their label only.
  const mv::EventView add("Score", 10, true);
  mv::WorldManager::getInstance().onEvent(&add);
  mv::WorldManager::getInstance().onEvent(&add);
  EXPECT_EQ(score->getValue(), 27);
  const mv::EventView set("Score", 3, false);
  EXPECT_EQ(label->eventHandler(&set), 0);
  mv::WorldManager::getInstance().onEvent(&set);
  EXPECT_EQ(score->getValue(), 3);
  EXPECT_EQ(label->getValue(), 0);
}

// Counts its clicks.
class CountingButton : public mv::Button {
 public:
  void onClick() override { clicks++; }
  int clicks = 0;
};

mv::EventMouse mouseAt(Vector where, mv::EventMouseAction action, int button = 0) {
  mv::EventMouse mouse;
  mouse.setMouseAction(action);
  mouse.setMouseButton(button);
  mouse.setMousePosition(where);
  return mouse;
}

TEST_F(ViewObjectTest, ButtonsLightUpUnderTheMouseAndActOnClicksAlone) {
  mv::WorldManager::getInstance().setView(mv::Box(Vector(0, 0), 80, 24));
  auto* button = new CountingButton;

  // The box runs from (35,10.5) to (45,13.5), edges included.
  const std::pair<Vector, bool> points[] = {
      {{45, 13.5f}, true}, {{45.1f, 13.5f}, false}, {{35, 10.5f}, true}, {{35, 10.4f}, false}};
  for (const auto& [where, inside] : points) {
    const mv::EventMouse mouse = mouseAt(where, mv::MOVED);
    EXPECT_EQ(button->mouseInside(&mouse), inside) << where.toString();
  }

  const mv::EventMouse held_over = mouseAt(Vector(40, 12), mv::PRESSED);
  EXPECT_EQ(button->eventHandler(&held_over), 1);
  EXPECT_EQ(button->getColor(), mv::RED);
  EXPECT_EQ(button->clicks, 0) << "holding a button over it is no click";

  const mv::EventMouse right_click = mouseAt(Vector(40, 12), mv::CLICKED, 1);
  button->eventHandler(&right_click);
  EXPECT_EQ(button->clicks, 1);

  const mv::EventMouse click_outside = mouseAt(Vector(2, 2), mv::CLICKED);
  EXPECT_EQ(button->eventHandler(&click_outside), 1);
  EXPECT_EQ(button->getColor(), mv::WHITE);
  EXPECT_EQ(button->clicks, 1);

  const mv::EventView view("button", 5, false);
  EXPECT_EQ(button->eventHandler(&view), 0) << "buttons do not follow view events";
  EXPECT_EQ(button->getValue(), 0);
}

}  // namespace

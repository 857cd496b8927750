#include "InputManager.h"

#include <gtest/gtest.h>

#include "Config.h"
#include "DisplayManager.h"
#include "FakeInput.h"
#include "GameManager.h"
#include "Keyboard.h"
#include "LogManager.h"
#include "RecordingObject.h"
#include "WorldTest.h"
#include "displayStart.h"
#include "logLines.h"

namespace {

using Log = std::vector<std::string>;
using mv::InputManager;
using mv_test::RecordingObject;

class InputManagerTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    ASSERT_EQ(mv_test::startDisplay("headless:true,"), 0);
    ASSERT_EQ(InputManager::getInstance().startUp(), 0) << "headless needs no window";
    InputManager::getInstance().setInputSource(&input);
    listener = new RecordingObject("listener");
    listener->registerInterest("mv-keyboard");
    listener->registerInterest("mv-mouse");
  }

  Log frame() {
    listener->received.clear();
    InputManager::getInstance().getInput();
    return listener->received;
  }

  mv_test::FakeInput input;
  RecordingObject* listener = nullptr;
};

const std::string A = std::to_string(mv::Keyboard::A);

TEST_F(InputManagerTest, KeysOutsideThePollGiveOnlyPressesAndReleases) {
  const std::string f11 = std::to_string(mv::Keyboard::F11);
  input.queueKey(sf::Event::KeyPressed, sf::Keyboard::F11);
  input.held_keys = {sf::Keyboard::F11, sf::Keyboard::Hyphen};
  EXPECT_EQ(frame(), Log{"key " + f11 + " pressed"}) << "F11 is never reported held";

  mv::LogManager::getInstance().setLogLevel(1);
  mv::LogManager::getInstance().setFlush(true);
  input.queueKey(sf::Event::KeyPressed, sf::Keyboard::Hyphen);
  input.queueKey(sf::Event::KeyReleased, sf::Keyboard::Hyphen);
  EXPECT_EQ(frame(), (Log{"key -1 pressed", "key -1 released"}))
      << "the hyphen key is passed on as no key";
  EXPECT_TRUE(
      mv_test::logged("InputManager::toEventKeyboard(): Warning key 'Hyphen' not handled."));

  input.held_keys = {sf::Keyboard::Subtract};
  EXPECT_EQ(frame(), Log{"key " + std::to_string(mv::Keyboard::MINUS) + " down"})
      << "the keypad's minus is the engine's minus";
}

TEST_F(InputManagerTest, HeldKeysAndButtonsComeInTheirFixedOrderAndButtonReleasesGiveNothing) {
  input.held_keys = {sf::Keyboard::Num0, sf::Keyboard::A,         sf::Keyboard::Space,
                     sf::Keyboard::Up,   sf::Keyboard::Backspace, sf::Keyboard::F10};
  const auto down = [](mv::Keyboard::Key key) { return "key " + std::to_string(key) + " down"; };
  using namespace mv::Keyboard;
  EXPECT_EQ(frame(), (Log{down(UPARROW), down(SPACE), down(F10), down(mv::Keyboard::A), down(NUM0),
                          down(BACKSPACE)}));

  input.held_keys.clear();
  input.mouse = {64, 16};
  input.held_buttons = {sf::Mouse::Middle, sf::Mouse::Right, sf::Mouse::Left};
  EXPECT_EQ(frame(), (Log{"mouse pressed 0 at (5,0.5)", "mouse pressed 1 at (5,0.5)",
                          "mouse pressed 2 at (5,0.5)"}));

  input.held_buttons.clear();
  input.queueMouse(sf::Event::MouseMoved, 13, 0);
  input.queueMouse(sf::Event::MouseButtonReleased, 13, 0);
  input.queueMouse(sf::Event::MouseButtonPressed, 13, 0, sf::Mouse::XButton1);
  EXPECT_EQ(frame(), (Log{"mouse moved -1 at (1.01562,0)", "mouse clicked -1 at (1.01562,0)"}))
      << "releases give nothing; unknown buttons are -1";
}

TEST_F(InputManagerTest, AKeyAndAMouseButtonHeldArePressedOnceThenReportedEachFrameUntilReleased) {
  input.queueKey(sf::Event::KeyPressed, sf::Keyboard::A);
  input.queueMouse(sf::Event::MouseButtonPressed, 64, 32, sf::Mouse::Right);
  input.held_keys = {sf::Keyboard::A};
  input.held_buttons = {sf::Mouse::Right};
  input.mouse = {64, 32};
  EXPECT_EQ(frame(), (Log{"key " + A + " pressed", "mouse clicked 1 at (5,1)",
                          "mouse pressed 1 at (5,1)", "key " + A + " down"}))
      << "window events, then held buttons, then held keys";
  for (int held = 1; held < 10; held++) {
    EXPECT_EQ(frame(), (Log{"mouse pressed 1 at (5,1)", "key " + A + " down"}));
  }
  input.held_keys.clear();
  input.held_buttons.clear();
  input.queueKey(sf::Event::KeyReleased, sf::Keyboard::A);
  EXPECT_EQ(frame(), Log{"key " + A + " released"});
}

TEST_F(InputManagerTest, ClosingTheWindowEndsTheGameAndLeavesTheRestForLater) {
  input.queueKey(sf::Event::KeyPressed, sf::Keyboard::A);
  sf::Event close{};
  close.type = sf::Event::Closed;
  input.queue.push_back(close);
  input.queueKey(sf::Event::KeyPressed, sf::Keyboard::B);
  input.held_keys = {sf::Keyboard::A};
  EXPECT_EQ(frame(), Log{"key " + A + " pressed"}) << "no held-key pass after the close";
  EXPECT_TRUE(mv::GameManager::getInstance().getGameOver());
  EXPECT_EQ(input.queue.size(), 1u);

  InputManager::getInstance().setInputSource(nullptr);
  EXPECT_EQ(frame(), Log{}) << "headless without a source there is no input";
  EXPECT_EQ(input.queue.size(), 1u);
}

TEST(InputManager, KeyNamesAndRefusalsAndNoStartBeforeTheDisplayOutsideHeadless) {
  EXPECT_EQ(mv::keyToString(mv::Keyboard::NUM0), "0");
  EXPECT_EQ(mv::keyToString(mv::Keyboard::SPACE), " ");
  EXPECT_EQ(mv::keyToString(mv::Keyboard::RETURN), "");
  EXPECT_EQ(mv::keyToString(static_cast<mv::Keyboard::Key>(73)), "");

  InputManager& input = InputManager::getInstance();
  EXPECT_FALSE(input.isValid("mv-step"));
  sf::Event resize{};
  resize.type = sf::Event::Resized;
  EXPECT_TRUE(mv_test::hasMessage(
      mv_test::stderrOf([&] { EXPECT_EQ(input.toEventKeyboard(resize).getKey(), -1); }),
      "toEventKeyboard(): Error! Called with non-keyboard event."));

  mv::Config::getInstance().loadConfig("headless:false,");
  EXPECT_TRUE(
      mv_test::hasMessage(mv_test::stderrOf([&] { EXPECT_EQ(input.startUp(), -1); }),
                          "InputManager::startUp(): Error! DisplayManager must be started first."));
}

}  // namespace

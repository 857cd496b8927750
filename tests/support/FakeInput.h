// Input for tests: a queue of window events and the keys and buttons held,
// handed to the input manager in place of a window.
#pragma once

#include <deque>
#include <set>

#include "InputSource.h"

namespace mv_test {

class FakeInput : public mv::InputSource {
 public:
  bool pollEvent(sf::Event& event) override;
  bool isKeyPressed(sf::Keyboard::Key key) const override;
  bool isButtonPressed(sf::Mouse::Button button) const override;
  sf::Vector2i getMousePosition() const override;

  void queueKey(sf::Event::EventType type, sf::Keyboard::Key key);
  void queueMouse(sf::Event::EventType type, int x, int y,
                  sf::Mouse::Button button = sf::Mouse::Left);

  std::deque<sf::Event> queue;
  std::set<sf::Keyboard::Key> held_keys;
  std::set<sf::Mouse::Button> held_buttons;
  sf::Vector2i mouse;
};

}  // namespace mv_test

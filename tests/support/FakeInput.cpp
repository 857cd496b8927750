#include "FakeInput.h"

namespace mv_test {

bool FakeInput::pollEvent(sf::Event& event) {
  if (queue.empty()) {
    return false;
  }
  event = queue.front();
  queue.pop_front();
  return true;
}

bool FakeInput::isKeyPressed(sf::Keyboard::Key key) const { return held_keys.count(key) > 0; }

bool FakeInput::isButtonPressed(sf::Mouse::Button button) const {
  return held_buttons.count(button) > 0;
}

sf::Vector2i FakeInput::getMousePosition() const { return mouse; }

void FakeInput::queueKey(sf::Event::EventType type, sf::Keyboard::Key key) {
  sf::Event event{};
  event.type = type;
  event.key.code = key;
  queue.push_back(event);
}

void FakeInput::queueMouse(sf::Event::EventType type, int x, int y, sf::Mouse::Button button) {
  sf::Event event{};
  event.type = type;
  if (type == sf::Event::MouseMoved) {
    event.mouseMove.x = x;
    event.mouseMove.y = y;
  } else {
    event.mouseButton.button = button;
    event.mouseButton.x = x;
    event.mouseButton.y = y;
  }
  queue.push_back(event);
}

}  // namespace mv_test

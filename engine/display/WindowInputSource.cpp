#include "WindowInputSource.h"

namespace mv {

namespace {

template <std::size_t N>
void setIfKnown(std::bitset<N>& held, int code, bool down) {
  if (code >= 0 && static_cast<std::size_t>(code) < N) {
    held.set(static_cast<std::size_t>(code), down);
  }
}

template <std::size_t N>
bool isSet(const std::bitset<N>& held, int code) {
  return code >= 0 && static_cast<std::size_t>(code) < N &&
         held.test(static_cast<std::size_t>(code));
}

}  // namespace

WindowInputSource::WindowInputSource(sf::Window& input_window) : window(input_window) {}

bool WindowInputSource::pollEvent(sf::Event& event) {
  if (!window.pollEvent(event)) {
    return false;
  }
  noteHeld(event);
  return true;
}

// A window that loses the focus hears no more of its keys going up: it lets
// them all go.
void WindowInputSource::noteHeld(const sf::Event& event) {
  switch (event.type) {
    case sf::Event::KeyPressed:
    case sf::Event::KeyReleased:
      setIfKnown(held_keys, event.key.code, event.type == sf::Event::KeyPressed);
      break;
    case sf::Event::MouseButtonPressed:
    case sf::Event::MouseButtonReleased:
      setIfKnown(held_buttons, event.mouseButton.button,
                 event.type == sf::Event::MouseButtonPressed);
      break;
    case sf::Event::LostFocus:
      held_keys.reset();
      held_buttons.reset();
      break;
    default:
      break;
  }
}

bool WindowInputSource::isKeyPressed(sf::Keyboard::Key key) const { return isSet(held_keys, key); }

bool WindowInputSource::isButtonPressed(sf::Mouse::Button button) const {
  return isSet(held_buttons, button);
}

sf::Vector2i WindowInputSource::getMousePosition() const { return sf::Mouse::getPosition(window); }

bool WindowInputSource::reads(const sf::Window& other) const { return &window == &other; }

}  // namespace mv

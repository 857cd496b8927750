#include "WindowInputSource.h"

namespace mv {

WindowInputSource::WindowInputSource(sf::Window& input_window) : window(input_window) {}

bool WindowInputSource::pollEvent(sf::Event& event) { return window.pollEvent(event); }

bool WindowInputSource::isKeyPressed(sf::Keyboard::Key key) const {
  return sf::Keyboard::isKeyPressed(key);
}

bool WindowInputSource::isButtonPressed(sf::Mouse::Button button) const {
  return sf::Mouse::isButtonPressed(button);
}

sf::Vector2i WindowInputSource::getMousePosition() const { return sf::Mouse::getPosition(window); }

}  // namespace mv

// Where the input pass reads from: a queue of window events and the state of
// the keys and mouse buttons. In a game the window is the source; tests hand
// the input manager one of their own.
#pragma once

#include <SFML/System/Vector2.hpp>
#include <SFML/Window/Event.hpp>
#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>

namespace mv {

class InputSource {
 public:
  virtual ~InputSource();

  // Takes the next queued event; false when the queue is empty.
  virtual bool pollEvent(sf::Event& event) = 0;
  virtual bool isKeyPressed(sf::Keyboard::Key key) const = 0;
  virtual bool isButtonPressed(sf::Mouse::Button button) const = 0;
  // The mouse in pixels from the window's top left corner.
  virtual sf::Vector2i getMousePosition() const = 0;
};

}  // namespace mv

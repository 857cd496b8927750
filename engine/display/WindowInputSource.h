// The input of a real window: its event queue, and the keys and mouse buttons
// held, as the window's own events tell them. Asking the system about each
// key would cost a round trip to the display server per key and frame, most
// of a frame's time on a remote or virtual display.
#pragma once

#include <SFML/Window/Window.hpp>
#include <bitset>

#include "InputSource.h"

namespace mv {

class WindowInputSource : public InputSource {
 public:
  explicit WindowInputSource(sf::Window& window);

  // Takes the next event of the window, and notes the keys and buttons that
  // it sends down or up.
  bool pollEvent(sf::Event& event) override;
  bool isKeyPressed(sf::Keyboard::Key key) const override;
  bool isButtonPressed(sf::Mouse::Button button) const override;
  sf::Vector2i getMousePosition() const override;

  // Whether this source reads `other`.
  bool reads(const sf::Window& other) const;

 private:
  void noteHeld(const sf::Event& event);

  sf::Window& window;
  std::bitset<sf::Keyboard::KeyCount> held_keys;
  std::bitset<sf::Mouse::ButtonCount> held_buttons;
};

}  // namespace mv

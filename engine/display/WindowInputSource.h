// The input of a real window: its event queue, and the keyboard and mouse as
// the system reports them.
#pragma once

#include <SFML/Window/Window.hpp>

#include "InputSource.h"

namespace mv {

class WindowInputSource : public InputSource {
 public:
  explicit WindowInputSource(sf::Window& window);

  bool pollEvent(sf::Event& event) override;
  bool isKeyPressed(sf::Keyboard::Key key) const override;
  bool isButtonPressed(sf::Mouse::Button button) const override;
  sf::Vector2i getMousePosition() const override;

 private:
  sf::Window& window;
};

}  // namespace mv

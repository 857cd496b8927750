// The keyboard and mouse under our player's hands, as a window reports them:
// every change of a key, a button or the mouse's place queues the event that a
// window would queue, and what is held answers the input manager's polls.
#pragma once

#include <SFML/System/Vector2.hpp>
#include <SFML/Window/Event.hpp>
#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>
#include <deque>
#include <set>

class Hands {
 public:
  void holdKey(sf::Keyboard::Key key, bool down);
  void holdButton(sf::Mouse::Button button, bool down);
  // In pixels from the window's top left corner.
  void moveMouse(sf::Vector2i to);
  // Moves there, then presses and releases the left button in the same frame.
  void click(sf::Vector2i at);
  void letGoOfEverything();

  // The oldest event not yet taken; false when there is none.
  bool takeEvent(sf::Event& event);
  bool isKeyDown(sf::Keyboard::Key key) const;
  bool isButtonDown(sf::Mouse::Button button) const;
  sf::Vector2i getMouse() const;

 private:
  void queueButton(sf::Event::EventType type, sf::Mouse::Button button);

  std::deque<sf::Event> events;
  std::set<sf::Keyboard::Key> keys;
  std::set<sf::Mouse::Button> buttons;
  sf::Vector2i mouse;
};

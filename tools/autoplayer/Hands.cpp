#include "Hands.h"

#include <vector>

void Hands::holdKey(sf::Keyboard::Key key, bool down) {
  if (isKeyDown(key) == down) {
    return;
  }
  if (down) {
    keys.insert(key);
  } else {
    keys.erase(key);
  }
  sf::Event event{};
  event.type = down ? sf::Event::KeyPressed : sf::Event::KeyReleased;
  event.key.code = key;
  events.push_back(event);
}

void Hands::holdButton(sf::Mouse::Button button, bool down) {
  if (isButtonDown(button) == down) {
    return;
  }
  if (down) {
    buttons.insert(button);
  } else {
    buttons.erase(button);
  }
  queueButton(down ? sf::Event::MouseButtonPressed : sf::Event::MouseButtonReleased, button);
}

void Hands::queueButton(sf::Event::EventType type, sf::Mouse::Button button) {
  sf::Event event{};
  event.type = type;
  event.mouseButton.button = button;
  event.mouseButton.x = mouse.x;
  event.mouseButton.y = mouse.y;
  events.push_back(event);
}

void Hands::moveMouse(sf::Vector2i to) {
  if (to == mouse) {
    return;
  }
  mouse = to;
  sf::Event event{};
  event.type = sf::Event::MouseMoved;
  event.mouseMove.x = to.x;
  event.mouseMove.y = to.y;
  events.push_back(event);
}

void Hands::click(sf::Vector2i at) {
  holdButton(sf::Mouse::Left, false);
  moveMouse(at);
  holdButton(sf::Mouse::Left, true);
  holdButton(sf::Mouse::Left, false);
}

void Hands::letGoOfEverything() {
  // Copies, as releasing changes the sets.
  for (sf::Keyboard::Key key : std::vector<sf::Keyboard::Key>(keys.begin(), keys.end())) {
    holdKey(key, false);
  }
  for (sf::Mouse::Button button : std::vector<sf::Mouse::Button>(buttons.begin(), buttons.end())) {
    holdButton(button, false);
  }
}

bool Hands::takeEvent(sf::Event& event) {
  if (events.empty()) {
    return false;
  }
  event = events.front();
  events.pop_front();
  return true;
}

bool Hands::isKeyDown(sf::Keyboard::Key key) const { return keys.count(key) > 0; }

bool Hands::isButtonDown(sf::Mouse::Button button) const { return buttons.count(button) > 0; }

sf::Vector2i Hands::getMouse() const { return mouse; }

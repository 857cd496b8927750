#include "InputManager.h"

#include <SFML/Graphics/RenderWindow.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Config.h"
#include "DisplayManager.h"
#include "EventMouse.h"
#include "GameManager.h"
#include "Keyboard.h"
#include "LogManager.h"
#include "Mouse.h"
#include "WindowInputSource.h"

namespace mv {

namespace {

LogManager& log() { return LogManager::getInstance(); }

struct KeyPair {
  Keyboard::Key key;
  sf::Keyboard::Key sfml_key;
};

// Every key the engine knows, with the key of the window that produces it.
// The hyphen of the main block is not among them: only the keypad's minus is.
constexpr KeyPair KEYS[] = {
    {Keyboard::SPACE, sf::Keyboard::Space},
    {Keyboard::RETURN, sf::Keyboard::Enter},
    {Keyboard::ESCAPE, sf::Keyboard::Escape},
    {Keyboard::TAB, sf::Keyboard::Tab},
    {Keyboard::LEFTARROW, sf::Keyboard::Left},
    {Keyboard::RIGHTARROW, sf::Keyboard::Right},
    {Keyboard::UPARROW, sf::Keyboard::Up},
    {Keyboard::DOWNARROW, sf::Keyboard::Down},
    {Keyboard::PAUSE, sf::Keyboard::Pause},
    {Keyboard::MINUS, sf::Keyboard::Subtract},
    {Keyboard::PLUS, sf::Keyboard::Add},
    {Keyboard::TILDE, sf::Keyboard::Tilde},
    {Keyboard::PERIOD, sf::Keyboard::Period},
    {Keyboard::COMMA, sf::Keyboard::Comma},
    {Keyboard::SLASH, sf::Keyboard::Slash},
    {Keyboard::EQUAL, sf::Keyboard::Equal},
    {Keyboard::BACKSLASH, sf::Keyboard::Backslash},
    {Keyboard::MULTIPLY, sf::Keyboard::Multiply},
    {Keyboard::QUOTE, sf::Keyboard::Quote},
    {Keyboard::SEMICOLON, sf::Keyboard::Semicolon},
    {Keyboard::LEFTCONTROL, sf::Keyboard::LControl},
    {Keyboard::RIGHTCONTROL, sf::Keyboard::RControl},
    {Keyboard::LEFTSHIFT, sf::Keyboard::LShift},
    {Keyboard::RIGHTSHIFT, sf::Keyboard::RShift},
    {Keyboard::BACKSPACE, sf::Keyboard::Backspace},
    {Keyboard::LEFTBRACKET, sf::Keyboard::LBracket},
    {Keyboard::RIGHTBRACKET, sf::Keyboard::RBracket},
};

// The engine's keys and the window's run alike through these ranges.
struct KeyRange {
  Keyboard::Key first;
  sf::Keyboard::Key sfml_first;
  int count;
};

constexpr KeyRange KEY_RANGES[] = {
    {Keyboard::A, sf::Keyboard::A, 26},
    {Keyboard::NUM1, sf::Keyboard::Num1, 9},
    {Keyboard::NUM0, sf::Keyboard::Num0, 1},
    {Keyboard::F1, sf::Keyboard::F1, 12},
};

Keyboard::Key toEngineKey(sf::Keyboard::Key sfml_key) {
  for (const KeyRange& range : KEY_RANGES) {
    const int offset = sfml_key - range.sfml_first;
    if (offset >= 0 && offset < range.count) {
      return static_cast<Keyboard::Key>(range.first + offset);
    }
  }
  for (const KeyPair& pair : KEYS) {
    if (pair.sfml_key == sfml_key) {
      return pair.key;
    }
  }
  return Keyboard::UNDEFINED_KEY;
}

sf::Keyboard::Key toSfmlKey(Keyboard::Key key) {
  for (const KeyRange& range : KEY_RANGES) {
    const int offset = key - range.first;
    if (offset >= 0 && offset < range.count) {
      return static_cast<sf::Keyboard::Key>(range.sfml_first + offset);
    }
  }
  for (const KeyPair& pair : KEYS) {
    if (pair.key == key) {
      return pair.sfml_key;
    }
  }
  return sf::Keyboard::Unknown;
}

// The order in which held keys are reported each frame. F11 and F12 are not
// polled: they give presses and releases only.
std::vector<Keyboard::Key> heldKeyOrder() {
  using namespace Keyboard;
  std::vector<Key> order = {
      UPARROW,   DOWNARROW,   LEFTARROW,    RIGHTARROW, SPACE,     RETURN,      TAB,
      ESCAPE,    PAUSE,       MINUS,        PLUS,       TILDE,     PERIOD,      COMMA,
      SLASH,     EQUAL,       BACKSLASH,    MULTIPLY,   QUOTE,     LEFTBRACKET, RIGHTBRACKET,
      SEMICOLON, LEFTCONTROL, RIGHTCONTROL, LEFTSHIFT,  RIGHTSHIFT};
  for (int key = F1; key <= F10; key++) {
    order.push_back(static_cast<Key>(key));
  }
  for (int key = A; key <= NUM0; key++) {
    order.push_back(static_cast<Key>(key));
  }
  order.push_back(BACKSPACE);
  return order;
}

// The name of a window key for the log, such as "Hyphen" or "F13".
std::string describeKey(sf::Keyboard::Key key) {
  if (key >= sf::Keyboard::A && key <= sf::Keyboard::Z) {
    return std::string(1, static_cast<char>('A' + (key - sf::Keyboard::A)));
  }
  if (key >= sf::Keyboard::Num0 && key <= sf::Keyboard::Num9) {
    return std::to_string(key - sf::Keyboard::Num0);
  }
  if (key >= sf::Keyboard::Numpad0 && key <= sf::Keyboard::Numpad9) {
    return "Numpad " + std::to_string(key - sf::Keyboard::Numpad0);
  }
  if (key >= sf::Keyboard::F1 && key <= sf::Keyboard::F15) {
    return "F" + std::to_string(key - sf::Keyboard::F1 + 1);
  }
  // The rest, in the window's order from Escape to Down.
  static const char* const names[] = {"Escape",
                                      "Left Control",
                                      "Left Shift",
                                      "Left Alt",
                                      "Left System",
                                      "Right Control",
                                      "Right Shift",
                                      "Right Alt",
                                      "Right System",
                                      "Menu",
                                      "[",
                                      "]",
                                      ";",
                                      ",",
                                      ".",
                                      "'",
                                      "/",
                                      "\\",
                                      "`",
                                      "=",
                                      "Hyphen",
                                      "Space",
                                      "Enter",
                                      "Backspace",
                                      "Tab",
                                      "Page Up",
                                      "Page Down",
                                      "End",
                                      "Home",
                                      "Insert",
                                      "Delete",
                                      "Add",
                                      "Subtract",
                                      "Multiply",
                                      "Divide",
                                      "Left",
                                      "Right",
                                      "Up",
                                      "Down"};
  const int index = key - sf::Keyboard::Escape;
  if (index >= 0 && index < static_cast<int>(std::size(names))) {
    return names[index];
  }
  return key == sf::Keyboard::Pause ? "Pause" : "Unknown";
}

Mouse::Button toEngineButton(sf::Mouse::Button button) {
  switch (button) {
    case sf::Mouse::Left:
      return Mouse::LEFT;
    case sf::Mouse::Right:
      return Mouse::RIGHT;
    case sf::Mouse::Middle:
      return Mouse::MIDDLE;
    default:
      return Mouse::UNDEFINED_BUTTON;
  }
}

Vector cellsOf(int pixel_x, int pixel_y) {
  return pixelsToSpaces(Vector(static_cast<float>(pixel_x), static_cast<float>(pixel_y)));
}

}  // namespace

InputManager::InputManager() : input_source(nullptr) { setType("InputManager"); }

InputManager::~InputManager() = default;

InputManager& InputManager::getInstance() {
  static InputManager instance;
  return instance;
}

bool InputManager::isValid(std::string event_type) const {
  return event_type == KEYBOARD_EVENT || event_type == MOUSE_EVENT;
}

int InputManager::startUp() {
  if (refuseSecondStart()) {
    return -1;
  }
  if (Config::getInstance().getHeadless()) {
    log().writeLog(1, "InputManager::startUp(): no input in headless mode.");
  } else {
    DisplayManager& display = DisplayManager::getInstance();
    if (!display.isStarted()) {
      log().writeLog("InputManager::startUp(): Error! DisplayManager must be started first.");
      return -1;
    }
    if (sf::RenderWindow* window = display.getWindow()) {
      window->setKeyRepeatEnabled(false);
      log().writeLog(2, "InputManager::startUp(): Keyboard repeated disabled.");
    } else {
      log().writeLog(
          "InputManager::startUp(): Warning! DisplayManager null. Cannot disable keyboard repeat.");
    }
  }
  Manager::startUp();
  log().writeLog(5, "InputManager::startUp(): successfully started.");
  return 0;
}

void InputManager::shutDown() {
  if (sf::RenderWindow* window = DisplayManager::getInstance().getWindow()) {
    window->setKeyRepeatEnabled(true);
    log().writeLog(2, "InputManager::shutDown(): Keyboard repeat enabled.");
  }
  window_source.reset();
  Manager::shutDown();
  log().writeLog(5, "InputManager::shutDown(): successfully stopped.");
}

void InputManager::setInputSource(InputSource* source) { input_source = source; }

void InputManager::getInput() {
  if (input_source != nullptr) {
    readInput(*input_source);
    return;
  }
  if (Config::getInstance().getHeadless()) {
    return;
  }
  sf::RenderWindow* window = DisplayManager::getInstance().getWindow();
  if (window == nullptr) {
    log().writeLog("InputManager::getInput(): DisplayManager unexpectedly returned null window!");
    return;
  }
  if (window_source == nullptr || !window_source->reads(*window)) {
    window_source = std::make_unique<WindowInputSource>(*window);
  }
  readInput(*window_source);
}

void InputManager::readInput(InputSource& source) {
  if (!sendQueuedEvents(source)) {
    return;
  }
  sendHeldButtons(source);
  sendHeldKeys(source);
}

bool InputManager::sendQueuedEvents(InputSource& source) {
  sf::Event event;
  while (source.pollEvent(event)) {
    switch (event.type) {
      case sf::Event::Closed:
        log().writeLog(1, "InputManager::getInput(): Window closed. Setting game over.");
        GameManager::getInstance().setGameOver(true);
        return false;
      case sf::Event::KeyPressed:
      case sf::Event::KeyReleased: {
        EventKeyboard keyboard = toEventKeyboard(event);
        keyboard.setKeyboardAction(event.type == sf::Event::KeyPressed ? KEY_PRESSED
                                                                       : KEY_RELEASED);
        onEvent(&keyboard);
        break;
      }
      case sf::Event::MouseMoved: {
        EventMouse mouse;
        mouse.setMouseAction(MOVED);
        mouse.setMousePosition(cellsOf(event.mouseMove.x, event.mouseMove.y));
        onEvent(&mouse);
        break;
      }
      case sf::Event::MouseButtonPressed: {
        EventMouse mouse;
        mouse.setMouseAction(CLICKED);
        mouse.setMouseButton(toEngineButton(event.mouseButton.button));
        mouse.setMousePosition(cellsOf(event.mouseButton.x, event.mouseButton.y));
        onEvent(&mouse);
        break;
      }
      default:
        break;
    }
  }
  return true;
}

// The mouse's place is asked for only while a button is held: on a remote
// display each question is a round trip.
void InputManager::sendHeldButtons(const InputSource& source) {
  EventMouse held;
  held.setMouseAction(PRESSED);
  bool placed = false;
  for (sf::Mouse::Button button : {sf::Mouse::Left, sf::Mouse::Right, sf::Mouse::Middle}) {
    if (!source.isButtonPressed(button)) {
      continue;
    }
    if (!placed) {
      const sf::Vector2i at = source.getMousePosition();
      held.setMousePosition(cellsOf(at.x, at.y));
      placed = true;
    }
    held.setMouseButton(toEngineButton(button));
    onEvent(&held);
  }
}

void InputManager::sendHeldKeys(const InputSource& source) {
  static const std::vector<Keyboard::Key> order = heldKeyOrder();
  for (Keyboard::Key key : order) {
    if (source.isKeyPressed(toSfmlKey(key))) {
      EventKeyboard held;
      held.setKey(key);
      held.setKeyboardAction(KEY_DOWN);
      onEvent(&held);
    }
  }
}

EventKeyboard InputManager::toEventKeyboard(const sf::Event& event) const {
  EventKeyboard keyboard;
  if (event.type != sf::Event::KeyPressed && event.type != sf::Event::KeyReleased) {
    log().writeLog("toEventKeyboard(): Error! Called with non-keyboard event.");
    keyboard.setKey(Keyboard::UNDEFINED_KEY);
    return keyboard;
  }
  const Keyboard::Key key = toEngineKey(event.key.code);
  const std::string description = describeKey(event.key.code);
  if (key == Keyboard::UNDEFINED_KEY) {
    log().writeLog(1, "InputManager::toEventKeyboard(): Warning key '%s' not handled.",
                   description.c_str());
  }
  keyboard.setKey(key);
  log().writeLog(15, "InputManager::toEventKeyboard(): Keyboard event '%s' (%s)",
                 keyToString(key).c_str(), description.c_str());
  return keyboard;
}

}  // namespace mv

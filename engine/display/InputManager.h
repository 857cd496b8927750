// Turns the window's input into engine events once a frame: queued events
// first, then the mouse buttons held, then the keys held, each sent at once
// to the objects that want "mv-mouse" or "mv-keyboard". Key repeat is off
// while the manager runs: held keys are polled in a fixed order instead.
#pragma once

#include <memory>
#include <string>

#include "EventKeyboard.h"
#include "Manager.h"

namespace sf {
class Event;
}  // namespace sf

namespace mv {

class InputSource;
class WindowInputSource;

class InputManager : public Manager {
 public:
  static InputManager& getInstance();

  // Only "mv-keyboard" and "mv-mouse".
  bool isValid(std::string event_type) const override;

  // Needs the display started, unless headless.
  int startUp() override;
  void shutDown() override;

  // The frame's input pass. Headless it does nothing, unless an input source is set.
  void getInput();

  // A keyboard event with the key of a window's key event and no action yet.
  EventKeyboard toEventKeyboard(const sf::Event& event) const;

  // Reads input from `source` instead of the window, headless too; null
  // returns to the window. Not owned.
  void setInputSource(InputSource* source);

 private:
  InputManager();
  ~InputManager() override;
  void readInput(InputSource& source);
  // False when the window was closed: the rest of the frame's input waits.
  bool sendQueuedEvents(InputSource& source);
  void sendHeldButtons(const InputSource& source);
  void sendHeldKeys(const InputSource& source);

  InputSource* input_source;
  // The window's input, kept from frame to frame: it remembers which keys
  // and buttons the window's events left held.
  std::unique_ptr<WindowInputSource> window_source;
};

}  // namespace mv

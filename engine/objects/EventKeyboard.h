// A key pressed, released or held down.
#pragma once

#include "Event.h"

namespace mv {

inline const std::string KEYBOARD_EVENT = "mv-keyboard";

enum EventKeyboardAction : int {
  UNDEFINED_KEYBOARD_ACTION = -1,
  KEY_PRESSED = 0,   // once, when the key goes down
  KEY_RELEASED = 1,  // once, when it comes up
  KEY_DOWN = 2,      // every frame while it is held
};

class EventKeyboard : public Event {
 public:
  // No key and no action.
  EventKeyboard();

  virtual void setKey(int new_key);
  virtual int getKey() const;
  virtual void setKeyboardAction(int new_keyboard_action);
  virtual int getKeyboardAction() const;

 private:
  int key;
  int keyboard_action;
};

}  // namespace mv

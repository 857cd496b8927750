#include "EventKeyboard.h"

namespace mv {

EventKeyboard::EventKeyboard() : key(-1), keyboard_action(-1) { setType(KEYBOARD_EVENT); }

void EventKeyboard::setKey(int new_key) { key = new_key; }
int EventKeyboard::getKey() const { return key; }
void EventKeyboard::setKeyboardAction(int new_keyboard_action) {
  keyboard_action = new_keyboard_action;
}
int EventKeyboard::getKeyboardAction() const { return keyboard_action; }

}  // namespace mv

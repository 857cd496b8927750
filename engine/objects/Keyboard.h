// The engine's key codes, which keyboard events carry, and their printed names.
#pragma once

#include <string>

namespace mv {
namespace Keyboard {

enum Key : int {
  UNDEFINED_KEY = -1,
  SPACE = 0,
  RETURN,
  ESCAPE,
  TAB,
  LEFTARROW,
  RIGHTARROW,
  UPARROW,
  DOWNARROW,
  PAUSE,
  MINUS,
  PLUS,
  TILDE,
  PERIOD,
  COMMA,
  SLASH,
  EQUAL,
  BACKSLASH,
  MULTIPLY,
  QUOTE,
  SEMICOLON,
  LEFTCONTROL,
  RIGHTCONTROL,
  LEFTSHIFT,
  RIGHTSHIFT,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  A,
  B,
  C,
  D,
  E,
  F,
  G,
  H,
  I,
  J,
  K,
  L,
  M,
  N,
  O,
  P,
  Q,
  R,
  S,
  T,
  U,
  V,
  W,
  X,
  Y,
  Z,
  NUM1,
  NUM2,
  NUM3,
  NUM4,
  NUM5,
  NUM6,
  NUM7,
  NUM8,
  NUM9,
  NUM0,
  BACKSPACE,
  // 73 belongs to no key.
  LEFTBRACKET = 74,
  RIGHTBRACKET = 75,
};

}  // namespace Keyboard

// The character a key types, such as "A", "7" or "-"; empty for keys that type none.
std::string keyToString(Keyboard::Key key);

}  // namespace mv

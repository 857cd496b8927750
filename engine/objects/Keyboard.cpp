#include "Keyboard.h"

namespace mv {

std::string keyToString(Keyboard::Key key) {
  using namespace Keyboard;
  if (key >= A && key <= Z) {
    return std::string(1, static_cast<char>('A' + (key - A)));
  }
  if (key >= NUM1 && key <= NUM9) {
    return std::string(1, static_cast<char>('1' + (key - NUM1)));
  }
  switch (key) {
    case SPACE:
      return " ";
    case MINUS:
      return "-";
    case PLUS:
      return "+";
    case TILDE:
      return "~";
    case PERIOD:
      return ".";
    case COMMA:
      return ",";
    case SLASH:
      return "/";
    case EQUAL:
      return "=";
    case BACKSLASH:
      return "\\";
    case MULTIPLY:
      return "*";
    case QUOTE:
      return "'";
    case SEMICOLON:
      return ";";
    case NUM0:
      return "0";
    case LEFTBRACKET:
      return "[";
    case RIGHTBRACKET:
      return "]";
    default:
      return "";
  }
}

}  // namespace mv

// One bit per group of an object's fields: the modified mask says which
// changed since the object was last written out, and a record says which it holds.
#pragma once

namespace mv {

enum Attribute : unsigned {
  ID = 0x1,
  ACTIVE = 0x2,
  VISIBLE = 0x4,
  EVENTS = 0x8,
  BOX = 0x10,
  POSITION = 0x20,
  TYPE = 0x40,
  ANIMATION = 0x80,
  ALTITUDE = 0x100,
  SOLIDNESS = 0x200,
  NO_SOFT = 0x400,
  SPEED = 0x800,
  DIRECTION = 0x1000,
  ACCELERATION = 0x2000,
  SHAPE = 0x4000,
  PATH = 0x8000,
  FOLLOW_PATH = 0x10000,
  AVOID_COLLISIONS = 0x20000,
  // Heads-up displays: the number shown, and everything else about them.
  VIEW_VALUE = 0x40000,
  VIEW_APPEARANCE = 0x80000,
  // Buttons: their two colours.
  BUTTON_APPEARANCE = 0x100000,
};

// Every attribute of a plain object.
constexpr unsigned ALL_OBJECT_ATTRIBUTES = 0x3ffff;

}  // namespace mv

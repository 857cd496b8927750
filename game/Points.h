// The score: a display that every destroyed enemy adds 10 to, through an
// "mv-view" event tagged "Points".
#pragma once

#include "ViewObject.h"

class Points : public mv::ViewObject {
 public:
  // "Points" at the top right, in yellow, from 0.
  Points();
};

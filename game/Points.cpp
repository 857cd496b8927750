#include "Points.h"

Points::Points() {
  setViewString("Points");
  setLocation(mv::TOP_RIGHT);
  setColor(mv::YELLOW);
  setValue(0);
}

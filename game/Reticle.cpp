#include "Reticle.h"

#include "EventMouse.h"

Reticle::Reticle() {
  setType("Reticle");
  setSolidness(mv::SPECTRAL);
  setSprite("reticle");
  setAltitude(4);
  registerInterest(mv::MOUSE_EVENT);
}

int Reticle::eventHandler(const mv::Event* event) {
  if (event->getType() != mv::MOUSE_EVENT) {
    return 0;
  }
  const auto* mouse = static_cast<const mv::EventMouse*>(event);
  if (mouse->getMouseAction() != mv::MOVED) {
    return 0;
  }
  setPosition(mouse->getMousePosition());
  return 1;
}

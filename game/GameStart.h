// The start screen: the game's name and keys, with the theme playing. P starts
// a game, Q leaves the program.
#pragma once

#include "Music.h"
#include "ViewObject.h"

class GameStart : public mv::ViewObject {
 public:
  GameStart();

  // P or Q held down; 1 for any key held down, else 0.
  int eventHandler(const mv::Event* event) override;
  // The sprite alone, without the text of a display.
  int draw() override;

 private:
  void start();

  // Borrowed from the resource manager; null without the theme.
  mv::Music* music;
};

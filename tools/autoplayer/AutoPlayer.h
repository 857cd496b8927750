// Our own player of Rustline. It stands in for the window as the engine's
// input source: on the first poll of every frame's input pass it looks at the
// world as a person looks at the screen, decides, and then answers with the
// events and the held keys and buttons that a person's hands would produce.
// On the start screen it holds P; in a game it walks with W, A, S and D,
// aims the mouse at the nearest enemy and holds the left button, clicks an
// upgrade when one is offered, and now and then gives up with Escape. Its
// chance comes from its own seeded generator, never from the game's.
#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "Hands.h"
#include "InputSource.h"
#include "Sight.h"
#include "steering.h"

struct GameRecord {
  // The frames in which the game was seen: from the first one to its end screen.
  int first_frame = 0;
  int last_frame = 0;
  // The highest number that "Room:" showed.
  int rooms_reached = 0;
  int upgrades_taken = 0;
  // The last number that "Health" showed: 0 or less when the hero died.
  int health = 0;
  // Ended by Escape rather than by the hero's death; false while it goes on.
  bool given_up = false;
  bool over = false;
};

class AutoPlayer : public mv::InputSource {
 public:
  explicit AutoPlayer(unsigned seed);

  bool pollEvent(sf::Event& event) override;
  bool isKeyPressed(sf::Keyboard::Key key) const override;
  bool isButtonPressed(sf::Mouse::Button button) const override;
  sf::Vector2i getMousePosition() const override;

  // Called at the start of every frame, before the player looks, with the
  // number of the frame, from 0.
  void setFrameListener(std::function<void(int frame)> listener);

  int getFrameCount() const;
  // Every game begun, the last one perhaps still going on.
  const std::vector<GameRecord>& getGames() const;

 private:
  void playFrame();
  void atStartScreen();
  void beginGame();
  void endGame(const Sight& sight);
  void inGame(const Sight& sight);
  void keepCount(const Sight& sight);
  void followOffer(const Sight& sight);
  void takeOffer(const Sight& sight);
  void fight(const Sight& sight);
  void walk(Move move);
  void thinkOfGivingUp();
  bool watchShots();
  int pause(int shortest, int longest);
  bool chance(double probability);

  std::mt19937 random;
  Hands hands;
  std::function<void(int)> frame_listener;
  // The first poll of a frame's input pass comes after the last frame's queue ran dry.
  bool frame_begun;
  int frame_count;
  std::vector<GameRecord> games;
  bool playing;
  // Frames to wait before the next deliberate act: pressing P, clicking an upgrade.
  int wait;
  // Frames left of a lapse of attention.
  int lapse;
  bool offer_standing;
  bool offer_taken;
  int clicked_button;
  std::string clicked_upgrade;
  Move last_move;
  float bullet_speed;
};

#include "AutoPlayer.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "DisplayManager.h"

namespace {

// The hero's bullets start at this speed; the player knows what it added by upgrades.
constexpr float FIRST_BULLET_SPEED = 2;
// About once in this many frames of a game the player gives up with Escape.
constexpr double GIVE_UP_CHANCE = 1.0 / 4000;
// The upgrades the player likes, best first; with little health left, health comes first.
const char* const FAVOURITE_UPGRADES[] = {"fire rate",    "add bullets", "bullet damage",
                                          "health",       "bullet size", "bullet bounces",
                                          "bullet speed", "player speed"};
constexpr int LOW_HEALTH = 2;
// About once in this many frames of a game the player's mind wanders for a
// while, and it stops watching the shots.
constexpr double LAPSE_CHANCE = 1.0 / 1500;
// Now and then the player takes the other upgrade, on a whim.
constexpr double WHIM_CHANCE = 0.15;

// The upgrade that a button offers, as its text names it; empty for none the player knows.
std::string upgradeOf(const SeenButton& button) {
  for (const char* upgrade : FAVOURITE_UPGRADES) {
    if (button.text.find(upgrade) != std::string::npos) {
      return upgrade;
    }
  }
  return "";
}

// The lower, the better liked.
long liking(const SeenButton& button, int health) {
  const std::string upgrade = upgradeOf(button);
  if (health <= LOW_HEALTH && upgrade == "health") {
    return 0;
  }
  return 1 + std::distance(
                 std::begin(FAVOURITE_UPGRADES),
                 std::find(std::begin(FAVOURITE_UPGRADES), std::end(FAVOURITE_UPGRADES), upgrade));
}

// The mouse is placed in whole pixels, as the input manager reads it.
sf::Vector2i pixelOf(mv::Vector cells) {
  const mv::Vector pixels = mv::spacesToPixels(cells);
  return sf::Vector2i(static_cast<int>(std::lround(pixels.getX())),
                      static_cast<int>(std::lround(pixels.getY())));
}

Sight withoutShots(Sight sight) {
  sight.shots.clear();
  return sight;
}

bool stillThere(const Sight& sight, int button_id) {
  return std::any_of(sight.buttons.begin(), sight.buttons.end(),
                     [button_id](const SeenButton& button) { return button.id == button_id; });
}

}  // namespace

AutoPlayer::AutoPlayer(unsigned seed)
    : random(seed),
      frame_begun(false),
      frame_count(0),
      playing(false),
      wait(-1),
      lapse(0),
      offer_standing(false),
      offer_taken(false),
      clicked_button(-1),
      bullet_speed(FIRST_BULLET_SPEED) {}

bool AutoPlayer::pollEvent(sf::Event& event) {
  if (!frame_begun) {
    frame_begun = true;
    if (frame_listener) {
      frame_listener(frame_count);
    }
    playFrame();
    frame_count++;
  }
  if (hands.takeEvent(event)) {
    return true;
  }
  frame_begun = false;
  return false;
}

bool AutoPlayer::isKeyPressed(sf::Keyboard::Key key) const { return hands.isKeyDown(key); }

bool AutoPlayer::isButtonPressed(sf::Mouse::Button button) const {
  return hands.isButtonDown(button);
}

sf::Vector2i AutoPlayer::getMousePosition() const { return hands.getMouse(); }

void AutoPlayer::setFrameListener(std::function<void(int frame)> listener) {
  frame_listener = std::move(listener);
}

int AutoPlayer::getFrameCount() const { return frame_count; }

const std::vector<GameRecord>& AutoPlayer::getGames() const { return games; }

void AutoPlayer::playFrame() {
  const Sight sight = look();
  if (sight.screen == Screen::GAME) {
    if (!playing) {
      beginGame();
    }
    inGame(sight);
    return;
  }
  if (playing) {
    endGame(sight);
  }
  if (sight.screen == Screen::START) {
    atStartScreen();
  } else {
    hands.letGoOfEverything();
  }
}

// A moment to look at the title, then P, held until the game is there.
void AutoPlayer::atStartScreen() {
  if (wait < 0) {
    wait = pause(15, 60);
  }
  if (wait > 0) {
    wait--;
    return;
  }
  hands.holdKey(sf::Keyboard::P, true);
}

void AutoPlayer::beginGame() {
  GameRecord game;
  game.first_frame = frame_count;
  games.push_back(game);
  playing = true;
  wait = -1;
  lapse = 0;
  offer_standing = false;
  clicked_button = -1;
  bullet_speed = FIRST_BULLET_SPEED;
  hands.letGoOfEverything();
}

void AutoPlayer::endGame(const Sight& sight) {
  GameRecord& game = games.back();
  game.health = sight.health;
  game.last_frame = frame_count;
  game.over = true;
  playing = false;
  wait = -1;
  hands.letGoOfEverything();
}

void AutoPlayer::inGame(const Sight& sight) {
  keepCount(sight);
  thinkOfGivingUp();
  walk(chooseMove(watchShots() ? sight : withoutShots(sight), last_move, random));
  if (sight.buttons.empty()) {
    offer_standing = false;
    fight(sight);
  } else {
    followOffer(sight);
  }
}

void AutoPlayer::keepCount(const Sight& sight) {
  GameRecord& game = games.back();
  game.last_frame = frame_count;
  game.rooms_reached = std::max(game.rooms_reached, sight.room);
  game.health = sight.health;
  if (clicked_button >= 0 && !stillThere(sight, clicked_button)) {
    game.upgrades_taken++;
    if (clicked_upgrade == "bullet speed") {
      bullet_speed += 1;
    }
    clicked_button = -1;
  }
}

// Nothing to shoot while an offer stands: the hero walks to the quiet end of
// the room, and the player reads the buttons before clicking one.
void AutoPlayer::followOffer(const Sight& sight) {
  if (!offer_standing) {
    offer_standing = true;
    offer_taken = false;
    wait = pause(20, 90);
  }
  hands.holdButton(sf::Mouse::Left, false);
  if (offer_taken) {
    return;
  }
  if (wait > 0) {
    wait--;
    return;
  }
  takeOffer(sight);
}

void AutoPlayer::takeOffer(const Sight& sight) {
  const auto by_liking = [&sight](const SeenButton& a, const SeenButton& b) {
    return liking(a, sight.health) < liking(b, sight.health);
  };
  const SeenButton& best = *std::min_element(sight.buttons.begin(), sight.buttons.end(), by_liking);
  const SeenButton& other =
      *std::max_element(sight.buttons.begin(), sight.buttons.end(), by_liking);
  const SeenButton& chosen = chance(WHIM_CHANCE) ? other : best;
  hands.click(pixelOf(chosen.middle));
  clicked_button = chosen.id;
  clicked_upgrade = upgradeOf(chosen);
  offer_taken = true;
  wait = -1;
}

void AutoPlayer::fight(const Sight& sight) {
  if (sight.enemies.empty()) {
    hands.holdButton(sf::Mouse::Left, false);
    return;
  }
  hands.moveMouse(pixelOf(aimAt(sight, bullet_speed, random)));
  hands.holdButton(sf::Mouse::Left, true);
}

void AutoPlayer::walk(Move move) {
  hands.holdKey(sf::Keyboard::A, move.across < 0);
  hands.holdKey(sf::Keyboard::D, move.across > 0);
  hands.holdKey(sf::Keyboard::W, move.down < 0);
  hands.holdKey(sf::Keyboard::S, move.down > 0);
  last_move = move;
}

// The end screen that follows lets go of Escape with everything else.
void AutoPlayer::thinkOfGivingUp() {
  if (chance(GIVE_UP_CHANCE)) {
    hands.holdKey(sf::Keyboard::Escape, true);
    games.back().given_up = true;
  }
}

bool AutoPlayer::watchShots() {
  if (lapse > 0) {
    lapse--;
  } else if (chance(LAPSE_CHANCE)) {
    lapse = pause(100, 400);
  }
  return lapse == 0;
}

int AutoPlayer::pause(int shortest, int longest) {
  return std::uniform_int_distribution<int>(shortest, longest)(random);
}

bool AutoPlayer::chance(double probability) {
  return std::bernoulli_distribution(probability)(random);
}

// Two plays with the same settings, the same fixed clock and the same player
// must be the same game. The world's state is compared every hundredth
// frame: a difference points at something that reads uninitialised memory,
// an address or the clock.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "Enemy.h"
#include "Hero.h"
#include "ObjectList.h"
#include "WorldManager.h"
#include "playthrough.h"

namespace {

constexpr int FRAMES = 3000;
constexpr int CHECK_EVERY = 100;
constexpr unsigned PLAYER_SEED = 11;

// Every object's type, position and velocity, and the health of the hero and
// of each enemy, in the world's own order, the numbers written exactly.
std::string describeWorld() {
  std::ostringstream state;
  state << std::hexfloat;
  const mv::ObjectList everything = mv::WorldManager::getInstance().getAllObjects(true);
  for (int i = 0; i < everything.getCount(); i++) {
    const mv::Object* o = everything[i];
    state << o->getType() << " at " << o->getPosition().getX() << "," << o->getPosition().getY()
          << " going " << o->getVelocity().getX() << "," << o->getVelocity().getY();
    if (o->getType() == "Hero") {
      state << " health " << static_cast<const Hero*>(o)->getStats().health;
    } else if (o->getType() == "Enemy") {
      state << " health " << static_cast<const Enemy*>(o)->getHealth();
    }
    state << "\n";
  }
  return state.str();
}

struct Checked {
  std::vector<std::string> states;
  std::vector<GameRecord> games;
};

Checked playAndLook() {
  Checked checked;
  checked.games = play(FRAMES, PLAYER_SEED, [&checked](int frame, const AutoPlayer&) {
                    if (frame % CHECK_EVERY == 0) {
                      checked.states.push_back(describeWorld());
                    }
                  }).games;
  return checked;
}

}  // namespace

TEST(Determinism, TheSamePlayTwiceIsTheSameGame) {
  PlaythroughFolder folder;
  const Checked first = playAndLook();
  const Checked second = playAndLook();
  ASSERT_FALSE(first.games.empty());
  EXPECT_GE(first.games[0].rooms_reached, 3) << "the plays pass rooms and an offer";
  ASSERT_EQ(first.states.size(), second.states.size());
  for (std::size_t i = 0; i < first.states.size(); i++) {
    ASSERT_EQ(first.states[i], second.states[i]) << "the plays part by frame " << i * CHECK_EVERY;
  }
}

#include "UpgradeButton.h"

#include <cstdlib>
#include <set>
#include <string>

#include "GameTest.h"

namespace {

using UpgradeButtonTest = GameTest;

TEST_F(UpgradeButtonTest, AStatAtItsLimitIsNeverOffered) {
  const std::vector<std::string> names = upgradeNames();
  const struct {
    int size_upgrades;
    int rate_upgrades;
    std::set<std::string> left_out;
  } cases[] = {
      {2, 0, {"bullet size"}},
      {2, 6, {"bullet size", "fire rate"}},
  };
  for (const auto& c : cases) {
    std::set<std::string> offered;
    for (unsigned seed = 1; seed <= 200; seed++) {
      emptyTheWorld();
      auto* hero = new Hero;
      applyUpgrade(hero, "bullet size", c.size_upgrades);
      applyUpgrade(hero, "fire rate", c.rate_upgrades);
      std::srand(seed);
      frame();
      for (mv::Object* button : all("UpgradeButton")) {
        offered.insert(static_cast<UpgradeButton*>(button)->getName());
      }
    }
    std::set<std::string> expected(names.begin(), names.end());
    for (const std::string& name : c.left_out) {
      expected.erase(name);
    }
    EXPECT_EQ(offered, expected);
  }
}

TEST_F(UpgradeButtonTest, EachButtonClickedGivesItsUpgradeAndTheNextRoomComesOnTheTenthStep) {
  for (std::size_t clicked : {1u, 2u}) {
    SCOPED_TRACE(clicked);
    // A hero alone, after his first step: the empty room 1 is over, and two upgrades stand offered.
    emptyTheWorld();
    Hero* hero = new Hero;
    frame();
    Stats expected = statsOf(hero);
    const std::vector<mv::Object*> buttons = all("UpgradeButton");
    ASSERT_EQ(buttons.size(), 2u);
    for (std::size_t i = 0; i < clicked; i++) {
      click(buttons[i]->getPosition());
      expected = upgraded(expected, static_cast<UpgradeButton*>(buttons[i])->getName());
    }
    frame();
    EXPECT_EQ(statsOf(hero), expected);
    EXPECT_EQ(all("UpgradeButton").size(), 2 - clicked);
    frames(8);
    EXPECT_TRUE(all("Room").empty());
    frame();
    EXPECT_EQ(all("Room").size(), 1u);
    EXPECT_TRUE(all("UpgradeButton").empty());
    EXPECT_FALSE(hero->isUpgrading());
  }
}

}  // namespace

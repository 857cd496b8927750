#include "GameStart.h"

#include <string>
#include <vector>

#include "DisplayManager.h"
#include "GameManager.h"
#include "GameTest.h"
#include "TextScreen.h"
#include "WorldManager.h"

namespace {

// The screens as a player sees them, drawn with the game's own sprites.
class GameStartTest : public GameTest {
 protected:
  GameStartTest() { game_sprites = true; }
};

using Key = sf::Keyboard;

TEST_F(GameStartTest, PStartsAGameInAWalledRoomAndTheEndScreenGivesWayToTheStartScreenWhereQEnds) {
  input.queueKey(sf::Event::KeyPressed, Key::P);
  startGame();
  EXPECT_TRUE(all("GameStart").empty());
  ASSERT_EQ(all("Hero").size(), 1u);
  EXPECT_EQ(static_cast<Hero*>(all("Hero")[0])->getStats().bullet_bounces, 0)
      << "the press of P came before the hero, and upgrades nothing";

  // What the world shows on a 157 by 48 screen, row after row, each ending in a line feed.
  mv_test::TextScreen text_screen(157, 48);
  mv::DisplayManager::getInstance().addCellRecorder(&text_screen);
  mv::WorldManager::getInstance().draw();
  const std::string screen = text_screen.text();
  mv::DisplayManager::getInstance().removeCellRecorder(&text_screen);
  const auto cell = [&](int column, int row) { return screen[row * 158 + column]; };
  // Rows 7 and 40 across, and, as 0 to 156 runs through every row between, columns 0 and 156.
  std::string walls;
  for (int i = 0; i <= 156; i++) {
    walls += {cell(i, 7), cell(i, 40), cell(0, 7 + i % 34), cell(156, 7 + i % 34)};
  }
  EXPECT_EQ(walls.find(' '), std::string::npos) << "a gap in the walls: " << screen;
  for (const char* display : {"Health 5", "Room: 1", "Points 0"}) {
    EXPECT_NE(screen.substr(0, 7 * 158).find(display), std::string::npos) << display;
  }

  // The end screen comes over an offer of upgrades: a click on one reaches no hero.
  const auto* first_hero = static_cast<const Hero*>(all("Hero")[0]);
  const int first_hero_id = first_hero->getId();
  const Stats fresh = statsOf(first_hero);
  input.queueKey(sf::Event::KeyPressed, Key::O);
  markAll("Enemy");
  frames(2);
  EXPECT_GT(shown("Points"), 0);
  const std::vector<mv::Object*> buttons = all("UpgradeButton");
  ASSERT_EQ(buttons.size(), 2u);

  hold({Key::Escape, Key::Q}, 1);
  EXPECT_TRUE(all("Hero").empty());
  click(buttons[0]->getPosition());
  frame();
  EXPECT_EQ(all("UpgradeButton").size(), 2u);
  for (int i = 0; i < 100 && all("GameStart").empty(); i++) {
    hold({Key::Q}, 1);
    EXPECT_FALSE(mv::GameManager::getInstance().getGameOver())
        << "Q is read by the start screen alone";
  }
  EXPECT_EQ(all("").size(), 1u) << "the start screen alone";
  hold({Key::A, Key::Escape}, 1);
  EXPECT_FALSE(mv::GameManager::getInstance().getGameOver()) << "other keys do nothing";

  hold({Key::P}, 1);
  ASSERT_EQ(all("Hero").size(), 1u);
  const auto* hero = static_cast<const Hero*>(all("Hero")[0]);
  EXPECT_NE(hero->getId(), first_hero_id);
  EXPECT_EQ(statsOf(hero), fresh);
  EXPECT_EQ(shown("Room:"), 1);
  EXPECT_EQ(shown("Points"), 0);
  EXPECT_EQ(shown("Health"), 5);

  new GameStart;
  hold({Key::Q}, 1);
  EXPECT_TRUE(mv::GameManager::getInstance().getGameOver()) << "Q on the start screen ends all";
}

}  // namespace

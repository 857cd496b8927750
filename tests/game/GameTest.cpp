#include "GameTest.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "Chair.h"
#include "EventStep.h"
#include "GameManager.h"
#include "GameStart.h"
#include "InputManager.h"
#include "LogManager.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "game.h"
#include "logLines.h"

namespace {

// A sprite file in the simple format, drawn with '#', with a slowdown of 3.
std::string spriteFile(int width, int height, int frames) {
  std::string text = std::to_string(frames) + "\n" + std::to_string(width) + "\n" +
                     std::to_string(height) + "\n3\nwhite\n";
  for (int row = 0; row < frames * height; row++) {
    text += std::string(width, '#') + "\n";
  }
  return text;
}

mv::WorldManager& world() { return mv::WorldManager::getInstance(); }

struct UpgradeEffect {
  const char* name;
  int stat;
  double change;
};

// What each upgrade does to the stats, by their place in Stats.
constexpr UpgradeEffect UPGRADE_EFFECTS[] = {
    {"health", 0, 1},         {"fire rate", 1, -4},     {"bullet size", 2, 1},
    {"bullet damage", 3, 1},  {"bullet speed", 4, 1},   {"add bullets", 5, 1},
    {"bullet bounces", 6, 1}, {"player speed", 7, 0.3},
};

}  // namespace

void GameTest::SetUp() {
  const std::filesystem::path game_data(RUSTLINE_DATA);
  std::filesystem::create_directory_symlink(game_data / "Sounds", "Sounds");
  if (game_sprites) {
    std::filesystem::create_directory_symlink(game_data / "Sprites", "Sprites");
  } else {
    // Sprites the rules can be reckoned with: the hero's and furnace's for their
    // changes, walls that close the room, and an end screen that lasts 6 steps.
    // All else goes without, in the default box of one cell.
    std::filesystem::create_directory("Sprites");
    for (const char* label : {"hero", "hero-hurt", "furnace", "furnace-active"}) {
      scratch.write(std::string("Sprites/") + label + "-spr.txt", spriteFile(1, 1, 1));
    }
    scratch.write("Sprites/wall-horizontal-spr.txt", spriteFile(158, 1, 1));
    scratch.write("Sprites/wall-vertical-spr.txt", spriteFile(1, 33, 1));
    scratch.write("Sprites/gameover-spr.txt", spriteFile(1, 1, 2));
  }
  std::filesystem::create_directory("play");
  std::filesystem::current_path("play");
  scratch.write("play/mv-config.txt",
                "headless:true,networking:false,window_horizontal_chars:157,"
                "window_vertical_chars:48,window_horizontal_pixels:1256,"
                "window_vertical_pixels:768,");
  ASSERT_EQ(mv::GameManager::getInstance().startUp(), 0);
  mv::LogManager::getInstance().setFlush(true);
  setGameBoundary();
  mv::InputManager::getInstance().setInputSource(&input);
  fixGameSeconds(1000);
  loadResources();
}

void GameTest::TearDown() {
  mv::GameManager::getInstance().shutDown();
  fixGameSeconds(-1);
}

void GameTest::step() {
  const mv::EventStep event(step_count++);
  mv::GameManager::getInstance().onEvent(&event);
}

void GameTest::frame() {
  step();
  mv::InputManager::getInstance().getInput();
  world().update();
}

void GameTest::frames(int count) {
  for (int i = 0; i < count; i++) {
    frame();
  }
}

Hero* GameTest::heroAlone() {
  emptyTheWorld();
  new Chair(mv::Vector(190, 46), 1);
  return new Hero;
}

void GameTest::startGame() {
  new GameStart;
  hold({sf::Keyboard::P}, 1);
}

void GameTest::hold(const std::set<sf::Keyboard::Key>& keys, int count) {
  input.held_keys = keys;
  frames(count);
  input.held_keys.clear();
}

void GameTest::emptyTheWorld() {
  markAll("");
  world().update();
  step_count = 0;
}

void GameTest::markAll(const std::string& type) {
  for (mv::Object* o : all(type)) {
    world().markForDelete(o);
  }
}

void GameTest::click(mv::Vector where) {
  const sf::Vector2i pixels = pixelsOf(where);
  input.queueMouse(sf::Event::MouseButtonPressed, pixels.x, pixels.y);
}

// An empty `type` stands for every object, active or not.
std::vector<mv::Object*> GameTest::all(const std::string& type) const {
  std::vector<mv::Object*> objects =
      mv_test::toVector(type.empty() ? world().getAllObjects(true) : world().objectsOfType(type));
  std::sort(objects.begin(), objects.end(),
            [](const mv::Object* a, const mv::Object* b) { return a->getId() < b->getId(); });
  return objects;
}

int GameTest::shown(const std::string& label) const {
  for (mv::Object* o : all("ViewObject")) {
    const auto* display = dynamic_cast<mv::ViewObject*>(o);
    if (display != nullptr && display->getViewString() == label) {
      return display->getValue();
    }
  }
  ADD_FAILURE() << "no display " << label;
  return -1;
}

// Ids only grow, so what has a higher id than anything before was built since.
std::vector<int> GameTest::stepsBuilding(const std::string& type, int count) {
  std::vector<int> steps;
  for (int i = 0; i < count; i++) {
    const std::vector<mv::Object*> before = all("");
    const int newest = before.empty() ? 0 : before.back()->getId();
    const int at = step_count;
    frame();
    const std::vector<mv::Object*> now = all(type);
    if (!now.empty() && now.back()->getId() > newest) {
      steps.push_back(at);
    }
  }
  return steps;
}

int GameTest::timesLogged(const std::string& message) const {
  const std::vector<std::string> messages = mv_test::logFileMessages();
  return static_cast<int>(std::count(messages.begin(), messages.end(), message));
}

sf::Vector2i pixelsOf(mv::Vector where) {
  return sf::Vector2i(static_cast<int>(where.getX() * 8), static_cast<int>(where.getY() * 16));
}

Stats statsOf(const Hero* hero) {
  const HeroStats& s = hero->getStats();
  return {1.0 * s.health, 1.0 * s.fire_slowdown, 1.0 * s.bullet_size,    1.0 * s.bullet_damage,
          s.bullet_speed, 1.0 * s.bullet_count,  1.0 * s.bullet_bounces, s.player_speed};
}

std::vector<std::string> upgradeNames() {
  std::vector<std::string> names;
  for (const UpgradeEffect& upgrade : UPGRADE_EFFECTS) {
    names.push_back(upgrade.name);
  }
  return names;
}

void applyUpgrade(Hero* hero, const std::string& name, int times) {
  for (int i = 0; i < times; i++) {
    EXPECT_EQ(hero->applyUpgrade(name), 0) << name;
  }
}

Stats upgraded(Stats stats, const std::string& name) {
  for (const UpgradeEffect& upgrade : UPGRADE_EFFECTS) {
    if (name == upgrade.name) {
      // Stats are floats: the sum is rounded as the hero rounds it.
      stats[upgrade.stat] = static_cast<float>(stats[upgrade.stat] + upgrade.change);
      return stats;
    }
  }
  ADD_FAILURE() << "no upgrade " << name;
  return stats;
}

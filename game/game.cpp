#include "game.h"

#include <string>

#include "Hero.h"
#include "ResourceManager.h"
#include "WorldManager.h"

namespace {

enum class Kind { SPRITE, SOUND, MUSIC };

struct GameFile {
  Kind kind;
  const char* label;
  const char* file;
};

// In the order they load.
constexpr GameFile GAME_FILES[] = {
    {Kind::SPRITE, "gamestart", "../Sprites/gamestart-spr.txt"},
    {Kind::SPRITE, "hero", "../Sprites/hero-spr.txt"},
    {Kind::SPRITE, "reticle", "../Sprites/reticle-spr.txt"},
    {Kind::SPRITE, "bullet-small", "../Sprites/bullet-small-spr.txt"},
    {Kind::SPRITE, "bullet-med", "../Sprites/bullet-med-spr.txt"},
    {Kind::SPRITE, "bullet-large", "../Sprites/bullet-large-spr.txt"},
    {Kind::SPRITE, "chair", "../Sprites/chair-spr.txt"},
    {Kind::SPRITE, "wall", "../Sprites/wall-spr.txt"},
    {Kind::SPRITE, "wall-horizontal", "../Sprites/wall-horizontal-spr.txt"},
    {Kind::SPRITE, "wall-vertical", "../Sprites/wall-vertical-spr.txt"},
    {Kind::SPRITE, "redbullet-large", "../Sprites/redbullet-large-spr.txt"},
    {Kind::SPRITE, "redbullet-med", "../Sprites/redbullet-med-spr.txt"},
    {Kind::SPRITE, "redbullet-small", "../Sprites/redbullet-small-spr.txt"},
    {Kind::SPRITE, "gunrobot", "../Sprites/gunrobot-spr.txt"},
    {Kind::SPRITE, "hero-hurt", "../Sprites/hero-hurt-spr.txt"},
    {Kind::SPRITE, "gameover", "../Sprites/gameover-spr.txt"},
    {Kind::SPRITE, "wrench", "../Sprites/wrench-spr.txt"},
    {Kind::SPRITE, "wrenchrobot", "../Sprites/wrenchrobot-spr.txt"},
    {Kind::SPRITE, "firepath", "../Sprites/firepath-spr.txt"},
    {Kind::SPRITE, "furnace-active", "../Sprites/furnace-active-spr.txt"},
    {Kind::SPRITE, "furnace", "../Sprites/furnace-spr.txt"},
    {Kind::SPRITE, "cactus", "../Sprites/cactus-spr.txt"},
    {Kind::SPRITE, "tnt", "../Sprites/tnt-spr.txt"},
    {Kind::SOUND, "damage", "../Sounds/damage.wav"},
    {Kind::SOUND, "game_over", "../Sounds/game_over.wav"},
    {Kind::SOUND, "shoot", "../Sounds/shoot.wav"},
    {Kind::SOUND, "upgrade", "../Sounds/upgrade.wav"},
    {Kind::MUSIC, "theme", "../Sounds/theme.wav"},
};

std::time_t fixed_seconds = -1;

}  // namespace

void setGameBoundary() {
  constexpr float WORLD_WIDTH = 200;
  constexpr float WORLD_HEIGHT = 48;
  mv::WorldManager::getInstance().setBoundary(mv::Box(mv::Vector(0, 0), WORLD_WIDTH, WORLD_HEIGHT));
}

void loadResources() {
  mv::ResourceManager& resources = mv::ResourceManager::getInstance();
  for (const GameFile& file : GAME_FILES) {
    switch (file.kind) {
      case Kind::SPRITE:
        resources.loadSprite(file.file, file.label);
        break;
      case Kind::SOUND:
        resources.loadSound(file.file, file.label);
        break;
      case Kind::MUSIC:
        resources.loadMusic(file.file, file.label);
        break;
    }
  }
}

std::time_t gameSeconds() { return fixed_seconds >= 0 ? fixed_seconds : std::time(nullptr); }

void fixGameSeconds(std::time_t seconds) { fixed_seconds = seconds; }

void playSound(const std::string& label) {
  mv::Sound* sound = mv::ResourceManager::getInstance().getSound(label);
  if (sound != nullptr) {
    sound->play(false);
  }
}

bool worldIsOpen() { return mv::WorldManager::getInstance().isStarted(); }

Hero* findHero() {
  const mv::ObjectList heroes = mv::WorldManager::getInstance().objectsOfType("Hero");
  return heroes.isEmpty() ? nullptr : static_cast<Hero*>(heroes[0]);
}

bool endScreenIsUp() {
  return !mv::WorldManager::getInstance().objectsOfType("GameOver").isEmpty();
}

#include "Sight.h"

#include "DisplayManager.h"
#include "Object.h"
#include "ObjectList.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "geometry.h"

namespace {

Seen seen(const mv::Object* o) {
  const mv::Box box = mv::getWorldBox(o);
  const mv::Vector half(box.getHorizontal() / 2, box.getVertical() / 2);
  return Seen{box.getCorner() + half, half, o->getVelocity(), o->getAnimation().getName()};
}

void readDisplay(const mv::Object* o, Sight& sight) {
  const auto* display = dynamic_cast<const mv::ViewObject*>(o);
  if (display == nullptr) {
    return;
  }
  if (display->getViewString() == "Room:") {
    sight.room = display->getValue();
  } else if (display->getViewString() == "Health") {
    sight.health = display->getValue();
  }
}

void readButton(const mv::Object* o, Sight& sight) {
  const auto* button = dynamic_cast<const mv::ViewObject*>(o);
  if (button != nullptr) {
    sight.buttons.push_back(SeenButton{o->getPosition(), button->getViewString(), o->getId()});
  }
}

}  // namespace

Sight look() {
  Sight sight;
  const mv::DisplayManager& display = mv::DisplayManager::getInstance();
  sight.screen_size = mv::Vector(static_cast<float>(display.getHorizontalChars()),
                                 static_cast<float>(display.getVerticalChars()));
  bool hero = false;
  bool start_screen = false;
  bool end_screen = false;
  const mv::ObjectList everything = mv::WorldManager::getInstance().getAllObjects();
  for (int i = 0; i < everything.getCount(); i++) {
    const mv::Object* o = everything[i];
    const std::string type = o->getType();
    if (type == "Hero") {
      hero = true;
      sight.hero = seen(o);
    } else if (type == "Enemy") {
      sight.enemies.push_back(seen(o));
    } else if (type == "EnemyBullet" || type == "Wrench") {
      sight.shots.push_back(seen(o));
    } else if (type == "UpgradeButton") {
      readButton(o, sight);
    } else if (type == "ViewObject") {
      readDisplay(o, sight);
    } else if (type == "GameStart") {
      start_screen = true;
    } else if (type == "GameOver") {
      end_screen = true;
    }
  }
  if (end_screen) {
    sight.screen = Screen::END;
  } else if (hero) {
    sight.screen = Screen::GAME;
  } else if (start_screen) {
    sight.screen = Screen::START;
  }
  return sight;
}

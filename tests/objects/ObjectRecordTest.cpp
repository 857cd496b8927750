#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <functional>
#include <sstream>
#include <string>

#include "Attribute.h"
#include "Button.h"
#include "ResourceManager.h"
#include "ViewObject.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "logLines.h"

namespace {

using mv::Vector;

class PlainButton : public mv::Button {
 public:
  void onClick() override {}
};

// The bytes of one attribute of an object, or of all it has: two objects
// whose records match hold the same values.
std::string recordOf(mv::Object* o, unsigned attributes) {
  std::stringstream record;
  EXPECT_EQ(o->serialize(record, attributes), 0);
  return record.str();
}

// Every attribute away from its default, as a peer would see a lived-in object.
void giveEveryAttributeAValue(mv::Object* o) {
  o->setId(77);
  o->setActive(false);
  o->setVisible(false);
  o->registerInterest("mv-step");
  o->registerInterest("rl::custom");
  o->setPosition(Vector(12.5f, 7.25f));
  o->setType("Hunter");
  o->setSprite("ship");
  mv::Animation animation = o->getAnimation();
  animation.setIndex(2);
  animation.setSlowdownCount(5);
  o->setAnimation(animation, false);
  o->setAltitude(3);
  o->setSolidness(mv::SOFT);
  o->setNoSoft(true);
  mv::Shape shape;
  shape.setType(mv::Shape::TRIANGLE);
  shape.setSize(6.5f);
  shape.setColorRGB(10, 20, 30);
  shape.setOpacity(128);
  o->setShape(shape);
  mv::Path path;
  path.setNodes({Vector(1, 1), Vector(2, 2)});
  o->setPath(path.popNode());
  o->setFollowPath(true);
  o->setVelocity(Vector(3, -4));
  o->setAcceleration(Vector(0, 0.01f));
  o->setAvoidCollisions(true);
  if (auto* view = dynamic_cast<mv::ViewObject*>(o)) {
    view->setValue(42);
    view->setViewString("Points");
    view->setBorder(false);
    view->setColor(mv::YELLOW);
    view->setLocation(mv::BOTTOM_RIGHT);
    view->setDrawValue(false);
  }
  if (auto* button = dynamic_cast<mv::Button*>(o)) {
    button->setDefaultColor(mv::GREEN);
    button->setHighlightColor(mv::BLUE);
  }
}

struct Kind {
  const char* name;
  std::function<mv::Object*()> make;
  unsigned attributes;
};

const Kind KINDS[] = {
    {"Object", [] { return new mv::Object; }, mv::ALL_OBJECT_ATTRIBUTES},
    {"ViewObject", [] { return new mv::ViewObject; },
     mv::ALL_OBJECT_ATTRIBUTES | mv::VIEW_VALUE | mv::VIEW_APPEARANCE},
    {"Button", [] { return new PlainButton; },
     mv::ALL_OBJECT_ATTRIBUTES | mv::VIEW_VALUE | mv::VIEW_APPEARANCE | mv::BUTTON_APPEARANCE},
};

class ObjectRecordTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    ASSERT_EQ(mv::ResourceManager::getInstance().startUp(), 0);
    scratch.write("ship.txt", "3\n2\n1\n0\nred\n<>\n[]\n{}\n");
    ASSERT_EQ(mv::ResourceManager::getInstance().loadSprite("ship.txt", "ship"), 0);
  }
  void TearDown() override {
    WorldTest::TearDown();
    mv::ResourceManager::getInstance().shutDown();
  }
};

// Pieces of a record written by hand: a four-byte number, an eight-byte length, a string.
std::string u32(std::uint32_t value) { return std::string(reinterpret_cast<char*>(&value), 4); }
std::string f32(float value) { return std::string(reinterpret_cast<char*>(&value), 4); }
std::string u64(std::uint64_t value) { return std::string(reinterpret_cast<char*>(&value), 8); }
std::string str(const std::string& text) { return u64(text.size()) + text; }

TEST_F(ObjectRecordTest, RecordsHoldTheirAttributesInOrderAsLittleEndianBytesAndUnknownSprites) {
  mv::Object* o = new mv::Object;
  EXPECT_EQ(recordOf(o, 0).size(), 125u)
      << "all 18 attributes of a new object, type \"(Undefined)\"";
  EXPECT_EQ(recordOf(o, 0), std::string(4, '\0')) << "nothing changed since";
  EXPECT_EQ(recordOf(o, mv::POSITION), std::string("\x20\0\0\0\0\0\x80\x3f\0\0\x80\x3f", 12))
      << "the mask, then (1,1) as two floats";

  o->setType("Hunter");
  o->setVelocity(Vector(3, 4));
  EXPECT_EQ(o->getModified(), static_cast<unsigned>(mv::TYPE | mv::SPEED | mv::DIRECTION));
  EXPECT_EQ(recordOf(o, mv::TYPE | mv::EVENTS),
            u32(mv::TYPE | mv::EVENTS) + u32(0) + str("Hunter"));
  EXPECT_EQ(o->getModified(), static_cast<unsigned>(mv::SPEED | mv::DIRECTION))
      << "named attributes are cleared, unnamed ones stay";
  EXPECT_EQ(recordOf(o, 0), u32(mv::SPEED | mv::DIRECTION) + f32(0.6f) + f32(0.8f) + f32(5))
      << "the direction comes before the speed";

  const std::string ghost = u32(mv::ANIMATION) + str("ghost") + u32(1) + u32(4);
  std::stringstream record(ghost);
  EXPECT_TRUE(mv_test::hasMessage(mv_test::stderrOf([&] { EXPECT_EQ(o->deserialize(record), 0); }),
                                  "Object::setSprite(): Warning! Sprite 'ghost' not found"));
  EXPECT_EQ(o->getAnimation().getSprite(), nullptr);
  EXPECT_EQ(recordOf(o, mv::ANIMATION), ghost) << "a sprite not loaded keeps its name and counts";
}

// Every attribute read back alone and all together; the whole record cut at
// any byte fails, and leaves every object where the world can find it.
TEST_F(ObjectRecordTest, EveryAttributeComesBackAloneAndAllTogetherAndACutRecordFailsSafely) {
  std::vector<mv::Object*> objects;
  for (const Kind& kind : KINDS) {
    SCOPED_TRACE(kind.name);
    mv::Object* fresh = kind.make();
    mv::Object* source = kind.make();
    giveEveryAttributeAValue(source);
    objects.insert(objects.end(), {fresh, source});
    for (unsigned bit = 1; bit & kind.attributes; bit <<= 1) {
      SCOPED_TRACE("attribute " + std::to_string(bit));
      const std::string given = recordOf(source, bit);
      ASSERT_NE(given, recordOf(fresh, bit)) << "the test gives every attribute a new value";
      mv::Object* target = kind.make();
      objects.push_back(target);
      target->registerInterest("rl::old");
      std::stringstream record(given);
      unsigned mask = 0;
      ASSERT_EQ(target->deserialize(record, &mask), 0);
      EXPECT_EQ(mask, bit);
      EXPECT_EQ(target->getModified(), 0u) << "what was read counts as written";
      EXPECT_EQ(recordOf(target, bit), given);
      if (bit != mv::EVENTS) {
        EXPECT_EQ(target->getInterests().back(), "rl::old")
            << "interests stay unless the record holds them";
      }
    }
    mv::Object* target = kind.make();
    objects.push_back(target);
    const std::string whole = recordOf(source, kind.attributes);
    std::stringstream record(whole);
    ASSERT_EQ(target->deserialize(record), 0);
    EXPECT_EQ(recordOf(target, kind.attributes), whole);
    EXPECT_NE(target->getAnimation().getSprite(), nullptr) << "the sprite is found by its name";
    EXPECT_EQ(target->getPath().getIndex(), 0) << "a path read back starts at its first node";
    EXPECT_EQ(target->getShape().getColor(), mv::CUSTOM);
    mv_test::stderrOf([&] {
      for (std::size_t length = 0; length < whole.size(); length++) {
        std::stringstream cut(whole.substr(0, length));
        objects.push_back(kind.make());
        EXPECT_EQ(objects.back()->deserialize(cut), -1) << "cut at " << length;
      }
    });
    mv_test::expectSceneGraphConsistent(objects);
    world().update();
    world().draw();
  }
}

// Bytes that no writer makes: each must end the record with -1 and a line
// that says what was wrong, having allocated nothing by the length it gives.
TEST_F(ObjectRecordTest, HostileRecordsFailWithALineAndAllocateNothing) {
  struct Case {
    const char* what;
    std::string bytes;
    const char* message;
  };
  const Case cases[] = {
      {"a type longer than any string", u32(mv::TYPE) + u64(UINT64_MAX),
       "Object::deserialize(): Error! Length 18446744073709551615 is more than the limit of "
       "65536."},
      {"a type longer than the stream", u32(mv::TYPE) + u64(100) + u32(0),
       "Object::deserialize(): Error! Length 100 is more than the 4 bytes left."},
      {"a negative count of interests", u32(mv::EVENTS) + u32(-1),
       "Object::deserialize(): Error! Count -1 is negative."},
      {"more interests than an object holds", u32(mv::EVENTS) + u32(101),
       "Object::deserialize(): Error! Length 101 is more than the limit of 100."},
      {"a position that is not a number", u32(mv::POSITION) + u32(0x7fc00000) + f32(1),
       "Vector::deserialize(): Error! Number 0x7fc00000 is not finite."},
      {"a path of a trillion nodes", u32(mv::PATH) + u64(1ull << 40),
       "Path::deserialize(): Error! Length 1099511627776 is more than the limit of 1048576."},
      // Finite numbers that the world could not live with.
      {"a position past the world's bound", u32(mv::POSITION) + f32(1.5e7f) + f32(1),
       "Vector::deserialize(): Error! Number 1.5e+07 is not in [-1e+07,1e+07]."},
      {"a box's corner far above", u32(mv::BOX) + f32(0) + f32(-2e7f) + f32(1) + f32(1),
       "Vector::deserialize(): Error! Number -2e+07 is not in [-1e+07,1e+07]."},
      {"a box wider than the bound", u32(mv::BOX) + f32(0) + f32(0) + f32(1e8f) + f32(1),
       "Box::deserialize(): Error! Number 1e+08 is not in [0,1e+07]."},
      {"a box of negative height", u32(mv::BOX) + f32(0) + f32(0) + f32(1) + f32(-1),
       "Box::deserialize(): Error! Number -1 is not in [0,1e+07]."},
      {"a huge direction", u32(mv::DIRECTION) + f32(1e20f) + f32(0),
       "Vector::deserialize(): Error! Number 1e+20 is not in [-1e+07,1e+07]."},
      {"a huge speed", u32(mv::SPEED) + f32(-1e20f),
       "Object::deserialize(): Error! Number -1e+20 is not in [-1e+07,1e+07]."},
      {"an acceleration that makes the speed infinite", u32(mv::ACCELERATION) + f32(0) + f32(1e20f),
       "Vector::deserialize(): Error! Number 1e+20 is not in [-1e+07,1e+07]."},
      {"a path node far away", u32(mv::PATH) + u64(1) + f32(3e9f) + f32(0),
       "Vector::deserialize(): Error! Number 3e+09 is not in [-1e+07,1e+07]."},
      {"the first id past the range", u32(mv::ID) + u32(1u << 30),
       "Object::deserialize(): Error! Number 1073741824 is not in [0,1073741823]."},
      {"a negative id", u32(mv::ID) + u32(-5),
       "Object::deserialize(): Error! Number -5 is not in [0,1073741823]."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::stringstream record(c.bytes);
    mv::Object* o = new mv::Object;
    const std::string before = recordOf(o, mv::ALL_OBJECT_ATTRIBUTES);
    const std::string logged = mv_test::stderrOf([&] { EXPECT_EQ(o->deserialize(record), -1); });
    EXPECT_TRUE(mv_test::hasMessage(logged, c.message)) << logged;
    EXPECT_EQ(o->getPosition(), Vector(1, 1));
    EXPECT_EQ(recordOf(o, mv::ALL_OBJECT_ATTRIBUTES), before) << "nothing refused is applied";
  }
}

TEST_F(ObjectRecordTest, ExtremeNumbersLeaveAnObjectTheWorldCanStillRun) {
  constexpr int LARGEST_ID = mv::Object::MAX_RECORD_ID;
  std::stringstream record(u32(mv::ID | mv::ANIMATION | mv::SHAPE) + u32(LARGEST_ID) +
                           str(std::string("ship\0tail", 9)) + u32(INT_MAX) + u32(INT_MAX) +
                           u32(57) + f32(3e38f) + u32(1000) + "\xff");
  mv::Object* o = new mv::Object;
  EXPECT_TRUE(mv_test::hasMessage(mv_test::stderrOf([&] { ASSERT_EQ(o->deserialize(record), 0); }),
                                  "Shape::setType(): Unknown shape type 57. Ignoring."));
  EXPECT_EQ(o->getAnimation().getName(), "ship") << "a name ends at its first zero byte";
  EXPECT_EQ((new mv::Object)->getId(), LARGEST_ID + 1);
  EXPECT_EQ((new mv::Object)->getId(), LARGEST_ID + 2)
      << "later objects still get ids of their own";
  o->draw();
  EXPECT_EQ(o->getAnimation().getIndex(), 0) << "an index past the last frame wraps to the first";

  // The sprite gave the box; a second record takes box and motion to their bounds.
  const float most = mv::MAX_WORLD_MAGNITUDE;
  std::stringstream motion(
      u32(mv::BOX | mv::POSITION | mv::DIRECTION | mv::SPEED | mv::ACCELERATION) + f32(-most) +
      f32(-most) + f32(most) + f32(most) + f32(most) + f32(-most) + f32(1) + f32(0) + f32(most) +
      f32(most) + f32(most));
  ASSERT_EQ(o->deserialize(motion), 0);
  for (int update = 0; update < 100; update++) {
    world().update();
    ASSERT_TRUE(std::isfinite(o->getPosition().getX()) && std::isfinite(o->getPosition().getY()))
        << "update " << update;
  }
  std::stringstream sped_up(recordOf(o, mv::SPEED | mv::ACCELERATION));
  EXPECT_EQ((new mv::Object)->deserialize(sped_up), 0)
      << "however long the acceleration lasts, a peer can read the speed";
}

}  // namespace

#include "Particle.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "EventStep.h"
#include "Firework.h"
#include "GameManager.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "particles.h"

namespace {

using mv::Vector;

class ParticleTest : public mv_test::WorldTest {
 protected:
  mv::WorldManager& world() { return mv::WorldManager::getInstance(); }

  // One frame's step to everything that counts steps, then the world's update.
  void step() {
    const mv::EventStep event(0);
    mv::GameManager::getInstance().onEvent(&event);
    world().update();
  }

  std::vector<mv::Object*> ofType(const std::string& type) {
    std::vector<mv::Object*> found;
    const mv::ObjectList list = world().objectsOfType(type);
    for (int i = 0; i < list.getCount(); i++) {
      found.push_back(list[i]);
    }
    return found;
  }
};

TEST_F(ParticleTest, ParticlesUseNoIdsAndDieWithTheirAge) {
  const int expected_id = (new mv::Object)->getId() + 1;
  auto* first = new mv::Particle(1, 1, 255, 255, 0, 0);
  auto* second = new mv::Particle(1, 3, 255, 255, 0, 0);
  EXPECT_EQ(first->getId(), 0);
  EXPECT_EQ(second->getId(), 0);
  EXPECT_EQ((new mv::Object)->getId(), expected_id);
  EXPECT_EQ(first->getShape().getType(), mv::Shape::CIRCLE);

  step();
  EXPECT_EQ(ofType("Particle").size(), 1u) << "an age of 1 ends at the first step";
  EXPECT_EQ(second->getAge(), 2);
  step();
  step();
  EXPECT_TRUE(ofType("Particle").empty());

  auto* stray = new mv::Particle(1, 100, 255, 255, 0, 0);
  stray->setPosition(Vector(79, 5));
  stray->setVelocity(Vector(3, 0));
  world().update();
  world().update();
  EXPECT_TRUE(ofType("Particle").empty()) << "a particle that leaves the world is gone";
}

TEST_F(ParticleTest, BatchesVaryAroundWhatWasAskedAndKeepTheHue) {
  EXPECT_EQ(mv::addParticles(0, Vector(5, 5), 0, Vector(), 0, 1, 0, 1, 0, 10, 0, 255, 0, 1, 2, 3, 0,
                             mv::PARTICLE),
            0);
  EXPECT_EQ(mv::addParticles(-3, Vector(5, 5), 0, Vector(), 0, 1, 0, 1, 0, 10, 0, 255, 0, 1, 2, 3,
                             0, mv::PARTICLE),
            0);
  EXPECT_TRUE(ofType("Particle").empty());

  std::srand(7);
  ASSERT_EQ(mv::addParticles(200, Vector(5, 5), 0, Vector(2, 0), 0, 1, 0, 0.5f, 0, 10, 0, 200, 0,
                             69, 0, 255, 255, mv::PARTICLE),
            0);
  for (mv::Object* o : ofType("Particle")) {
    const mv::Shape shape = o->getShape();
    EXPECT_EQ(shape.getOpacity(), 200) << "no opacity spread: exactly as asked";
    EXPECT_EQ(o->getDirection(), Vector(1, 0)) << "a direction without spread is only normalised";
    EXPECT_FLOAT_EQ(o->getSpeed(), 0.5f);
  }

  std::srand(7);
  ASSERT_EQ(mv::addParticles(50, Vector(5, 5), 0, Vector(), 0, 1, 0, 1, 0, 10, 0, 255, 0, 1, 2, 3,
                             0, static_cast<mv::ParticleClass>(5)),
            -1);
  for (mv::Object* o : ofType("Particle")) {
    EXPECT_FLOAT_EQ(o->getDirection().getMagnitude(), 1.0f);
  }
}

TEST_F(ParticleTest, FireworksFallAndLeaveOpaqueTrailsOfAQuarterTheirAge) {
  ASSERT_EQ(mv::addParticles(mv::FIREWORKS, Vector(40, 12), 1, mv::CUSTOM), 0);
  const std::vector<mv::Object*> fireworks = ofType("Firework");
  ASSERT_EQ(fireworks.size(), 4u);
  EXPECT_EQ(fireworks[0]->getShape().getSize(), 2.0f);
  EXPECT_EQ(fireworks[0]->getAcceleration(), Vector(0, 0.01f));

  auto* firework = new mv::Firework(4, 40, 100, 255, 69, 0);
  firework->setPosition(Vector(10, 10));
  for (mv::Object* o : fireworks) {
    world().markForDelete(o);
  }
  world().update();
  step();
  const std::vector<mv::Object*> trail = ofType("Particle");
  ASSERT_EQ(trail.size(), 1u);
  EXPECT_EQ(static_cast<mv::Particle*>(trail[0])->getAge(), 10);
  EXPECT_EQ(trail[0]->getShape().getOpacity(), 255);
  EXPECT_EQ(trail[0]->getShape().getSize(), 2.0f);
  step();
  EXPECT_EQ(static_cast<mv::Particle*>(ofType("Particle")[1])->getAge(), 10)
      << "the trail's age does not shrink as the firework ages";
}

TEST_F(ParticleTest, TheFourEffectsMakeTheirCountsAndColours) {
  ASSERT_EQ(mv::addParticles(mv::SMOKE, Vector(40, 12), 1, mv::CUSTOM), 0);
  EXPECT_EQ(ofType("Particle").size(), 20u);
  ASSERT_EQ(mv::addParticles(mv::SPARKS, Vector(40, 12), 2, mv::BLUE), 0);
  EXPECT_EQ(ofType("Particle").size(), 120u);
  EXPECT_EQ(ofType("Particle").back()->getShape().getColor(), mv::CUSTOM);
  ASSERT_EQ(mv::addParticles(7, Vector(40, 12), 1, mv::RED), 0) << "no such effect: nothing";
  EXPECT_EQ(ofType("Particle").size(), 120u);
}

}  // namespace

namespace {

TEST_F(ParticleTest, SpreadsStayWithinTheirRange) {
  std::srand(3);
  ASSERT_EQ(mv::addParticles(300, Vector(40, 12), 2, Vector(1, 0), 0.5f, 3, 1, 0.2f, 0.1f, 20, 10,
                             255, 0, 255, 69, 0, 255, mv::PARTICLE),
            0);
  for (mv::Object* o : ofType("Particle")) {
    const auto* particle = static_cast<mv::Particle*>(o);
    EXPECT_LE(std::abs(o->getPosition().getX() - 40), 1.0f);
    EXPECT_LE(std::abs(o->getSpeed() - 0.2f), 0.05f + 1e-6f);
    EXPECT_LE(std::abs(o->getShape().getSize() - 3), 0.5f + 1e-6f);
    EXPECT_GE(particle->getAge(), 15);
    EXPECT_LT(particle->getAge(), 25);
    EXPECT_EQ(o->getShape().getColor(), mv::CUSTOM);
  }
}

}  // namespace

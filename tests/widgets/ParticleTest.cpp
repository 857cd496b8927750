#include "Particle.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "EventStep.h"
#include "Firework.h"
#include "GameManager.h"
#include "WorldTest.h"
#include "particles.h"

namespace {

using mv::Vector;

class ParticleTest : public mv_test::WorldTest {
 protected:
  // One frame's step to everything that counts steps, then the world's update.
  static void step() {
    const mv::EventStep event(0);
    mv::GameManager::getInstance().onEvent(&event);
    world().update();
  }
  static std::vector<mv::Object*> ofType(const std::string& type) {
    return mv_test::toVector(world().objectsOfType(type));
  }
};

TEST_F(ParticleTest, ParticlesUseNoIdsDieWithAgeOrOutsideAndBatchesVaryWithinTheirSpreads) {
  const int expected_id = (new mv::Object)->getId() + 1;
  auto* first = new mv::Particle(1, 1, 255, 255, 0, 0);
  auto* second = new mv::Particle(1, 3, 255, 255, 0, 0);
  EXPECT_EQ(first->getId() + second->getId(), 0);
  EXPECT_EQ((new mv::Object)->getId(), expected_id);
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

  for (int count : {0, -3}) {
    EXPECT_EQ(mv::addParticles(count, Vector(5, 5), 0, Vector(), 0, 1, 0, 1, 0, 10, 0, 255, 0, 1, 2,
                               3, 0, mv::PARTICLE),
              0);
  }
  EXPECT_TRUE(ofType("Particle").empty());
  EXPECT_EQ(mv::addParticles(50, Vector(5, 5), 0, Vector(), 0, 1, 0, 1, 0, 10, 0, 255, 0, 1, 2, 3,
                             0, static_cast<mv::ParticleClass>(5)),
            -1);

  std::srand(3);
  ASSERT_EQ(mv::addParticles(300, Vector(40, 12), 2, Vector(1, 0), 0.5f, 3, 1, 0.2f, 0.1f, 20, 10,
                             200, 0, 255, 69, 0, 255, mv::PARTICLE),
            0);
  for (mv::Object* o : ofType("Particle")) {
    const auto* particle = static_cast<mv::Particle*>(o);
    EXPECT_LE(std::abs(o->getPosition().getX() - 40), 1.0f);
    EXPECT_LE(std::abs(o->getSpeed() - 0.2f), 0.05f + 1e-6f);
    EXPECT_LE(std::abs(o->getShape().getSize() - 3), 0.5f + 1e-6f);
    EXPECT_GE(particle->getAge(), 15);
    EXPECT_LT(particle->getAge(), 25);
    EXPECT_EQ(o->getShape().getColor(), mv::CUSTOM);
    EXPECT_EQ(o->getShape().getOpacity(), 200) << "no opacity spread: exactly as asked";
    EXPECT_FLOAT_EQ(o->getDirection().getMagnitude(), 1.0f);
  }
}

TEST_F(ParticleTest, FireworksFallAndLeaveOpaqueTrailsOfAQuarterTheirAge) {
  ASSERT_EQ(mv::addParticles(mv::FIREWORKS, Vector(40, 12), 1, mv::CUSTOM), 0);
  const std::vector<mv::Object*> fireworks = ofType("Firework");
  ASSERT_EQ(fireworks.size(), 4u);
  for (mv::Object* o : fireworks) {
    world().markForDelete(o);
  }
  world().update();

  (new mv::Firework(4, 40, 100, 255, 69, 0))->setPosition(Vector(10, 10));
  step();
  const std::vector<mv::Object*> trail = ofType("Particle");
  ASSERT_EQ(trail.size(), 1u);
  EXPECT_EQ(static_cast<mv::Particle*>(trail[0])->getAge(), 10);
  EXPECT_EQ(trail[0]->getShape().getOpacity(), 255);
  EXPECT_EQ(trail[0]->getShape().getSize(), 2.0f);
  step();
  EXPECT_EQ(static_cast<mv::Particle*>(ofType("Particle")[1])->getAge(), 10)
      << "the trail's age does not shrink as the firework ages";
  ASSERT_EQ(mv::addParticles(7, Vector(40, 12), 1, mv::RED), 0) << "no such effect: nothing";
  EXPECT_EQ(ofType("Particle").size(), 2u);
}

}  // namespace

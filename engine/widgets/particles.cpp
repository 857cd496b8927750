#include "particles.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "Firework.h"
#include "LogManager.h"
#include "Particle.h"
#include "platform.h"
#include "utility.h"

namespace mv {

namespace {

// x moved by up to half of `spread` either way, at random.
float vary(float x, float spread) {
  return static_cast<float>(static_cast<float>(platform::random15()) / 32767.0 * spread -
                            spread * 0.5 + x);
}

// A random number from about -1 to 1.
float randomComponent() {
  const int first = platform::random15();
  const int second = platform::random15();
  return static_cast<float>((first - second) / 32767.0);
}

// A colour component moved by `d`, held to 0 to 255; an absent component stays absent.
unsigned char shifted(unsigned char component, int d) {
  return component == 0 ? 0 : static_cast<unsigned char>(std::clamp(component + d, 0, 255));
}

Particle* makeParticle(ParticleClass particle_class, float size, int age, unsigned char opacity,
                       unsigned char r, unsigned char g, unsigned char b) {
  if (particle_class == FIREWORK) {
    return new (std::nothrow) Firework(size, age, opacity, r, g, b);
  }
  return new (std::nothrow) Particle(size, age, opacity, r, g, b);
}

}  // namespace

int addParticles(int count, Vector position, float position_spread, Vector direction,
                 float direction_spread, float size, float size_spread, float speed,
                 float speed_spread, int age, int age_spread, unsigned char opacity,
                 unsigned char opacity_spread, unsigned char r, unsigned char g, unsigned char b,
                 unsigned char color_spread, ParticleClass particle_class) {
  for (int i = 0; i < count; i++) {
    unsigned char particle_opacity = opacity;
    if (opacity_spread != 0) {
      const int s = static_cast<signed char>(opacity_spread);
      particle_opacity = static_cast<unsigned char>(std::rand() % s - s / 2 + opacity);
    }
    int particle_age = age;
    if (age_spread != 0) {
      particle_age = std::rand() % age_spread - age_spread / 2 + age;
    }
    float particle_size = size;
    if (size_spread != 0) {
      particle_size = vary(size, size_spread);
    }
    unsigned char red = r, green = g, blue = b;
    if (color_spread != 0) {
      const int d = std::rand() % color_spread - color_spread / 2;
      red = shifted(r, d);
      green = shifted(g, d);
      blue = shifted(b, d);
    }

    if (particle_class != PARTICLE && particle_class != FIREWORK) {
      LogManager::getInstance().writeLog("addParticles(): Type %d not defined.",
                                         static_cast<int>(particle_class));
      return -1;
    }
    Particle* particle = makeParticle(particle_class, particle_size, particle_age, particle_opacity,
                                      red, green, blue);
    if (particle == nullptr) {
      LogManager::getInstance().writeLog("addParticles(): Error!  Unable to create new Particle!");
      return -1;
    }

    Vector heading = direction;
    if (direction.isZero()) {
      const float x = randomComponent();
      const float y = randomComponent();
      heading = Vector(x, y);
    } else if (direction_spread != 0) {
      const float x = vary(direction.getX(), direction_spread);
      const float y = vary(direction.getY(), direction_spread);
      heading = Vector(x, y);
    }
    heading.normalize();
    const float particle_speed = speed_spread != 0 ? vary(speed, speed_spread) : speed;
    heading.scale(particle_speed);

    Vector place = position;
    if (position_spread != 0) {
      const float x = vary(position.getX(), position_spread);
      const float y = vary(position.getY(), position_spread);
      place = Vector(x, y);
    }
    particle->setPosition(place);
    particle->setVelocity(heading);
  }
  return 0;
}

int addParticles(int type, Vector position, float scale, Color color) {
  const float s = scale;
  const float k = (s * 0.25f + 1) * 0.08f;
  const float m = (s / 3 + 1) * 0.1f;
  struct Effect {
    int count;
    Vector direction;
    float direction_spread, size, size_spread, speed, speed_spread;
    int age, age_spread;
    unsigned char opacity, opacity_spread, r, g, b, color_spread;
    ParticleClass particle_class;
  };
  Effect effect{};
  switch (type) {
    case SMOKE:
      effect = {static_cast<int>(20 * s),
                Vector(0, -1),
                0.3f * s * 0.5f,
                5 * s / 1.5f,
                0.15f * s,
                0.2f,
                0.05f,
                static_cast<int>(20 * s),
                static_cast<int>(5 * s),
                128,
                50,
                128,
                128,
                128,
                50,
                PARTICLE};
      break;
    case SPARKS:
      effect = {
          static_cast<int>(50 * s), Vector(), 0,  1.5f * s, 0,  k, k, static_cast<int>(15 * s),
          static_cast<int>(15 * s), 255,      75, 255,      69, 0, 0, PARTICLE};
      break;
    case BURST:
      effect = {static_cast<int>(50 * s),
                Vector(),
                0,
                2.5f * s,
                0,
                k,
                0,
                static_cast<int>(10 * s),
                0,
                255,
                75,
                255,
                20,
                147,
                0,
                PARTICLE};
      break;
    case FIREWORKS:
      effect = {static_cast<int>(4 * s),
                Vector(0, -1),
                1.5f,
                2 * s,
                0,
                m,
                m,
                static_cast<int>(20 * s),
                static_cast<int>(20 * s),
                255,
                75,
                255,
                69,
                0,
                255,
                FIREWORK};
      break;
    default:
      return 0;
  }
  colorToRGB(color, effect.r, effect.g, effect.b);
  return addParticles(effect.count, position, 0, effect.direction, effect.direction_spread,
                      effect.size, effect.size_spread, effect.speed, effect.speed_spread,
                      effect.age, effect.age_spread, effect.opacity, effect.opacity_spread,
                      effect.r, effect.g, effect.b, effect.color_spread, effect.particle_class);
}

}  // namespace mv

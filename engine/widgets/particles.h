// Effects of many particles at once: smoke, sparks, bursts and fireworks,
// each particle varied at random around the values asked for.
#pragma once

#include "Color.h"
#include "Vector.h"

namespace mv {

enum ParticleClass : int {
  PARTICLE = 0,
  FIREWORK = 1,
};

enum ParticleEffect : int {
  SMOKE = 0,
  SPARKS = 1,
  BURST = 2,
  FIREWORKS = 3,
};

// Creates `count` particles. Each spread is the whole range over which the
// value varies around the one given; a direction of (0,0) is a random one.
// 0, or -1 when a particle can't be made (those made before stay).
int addParticles(int count, Vector position, float position_spread, Vector direction,
                 float direction_spread, float size, float size_spread, float speed,
                 float speed_spread, int age, int age_spread, unsigned char opacity,
                 unsigned char opacity_spread, unsigned char r, unsigned char g, unsigned char b,
                 unsigned char color_spread, ParticleClass particle_class);

// One of the four effects, larger with `scale`, in `color` unless it is CUSTOM.
// An effect outside 0 to 3 makes nothing.
int addParticles(int type, Vector position, float scale, Color color);

}  // namespace mv

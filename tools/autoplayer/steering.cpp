#include "steering.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "geometry.h"

namespace {

// The cells inside the room's walls.
constexpr float ROOM_LEFT = 1;
constexpr float ROOM_RIGHT = 155;
constexpr float ROOM_TOP = 8;
constexpr float ROOM_BOTTOM = 39;
// A cell is twice as tall as it is wide, so rows count double in distances.
constexpr float ROW_WEIGHT = 2;
// A held key moves the hero 2 columns or 1 row, on every other step.
constexpr float COLUMNS_PER_MOVE = 2;
constexpr float ROWS_PER_MOVE = 1;
constexpr int LOOKAHEAD_STEPS = 20;
// Clearances, in columns, under which a shot or an enemy starts to worry.
constexpr float SHOT_MARGIN = 3;
constexpr float ENEMY_MARGIN = 5;
// Far enough to dodge what comes, near enough to hit what moves.
constexpr float FIRING_DISTANCE = 40;
// Room to dodge in: closer to a wall than this feels cornered.
constexpr float WALL_MARGIN = 6;
// A furnace breathes flame at a hero within 5 of its row or column.
constexpr float FURNACE_BAND = 6;
// Enemies appear in the right half of the room; the left end is where to wait.
const mv::Vector QUIET_END(12, 24);
// The bullet leaves 3 columns to the right of the hero.
const mv::Vector MUZZLE(3, 0);
constexpr float AIM_SPREAD = 0.3f;

constexpr float SHOT_WEIGHT = 40;
constexpr float ENEMY_WEIGHT = 25;
constexpr float WALL_WEIGHT = 3;
constexpr float FURNACE_WEIGHT = 8;
// Keeping to the keys already held avoids dithering.
constexpr float STEADINESS = 1.5f;
constexpr float WHIM = 1;

mv::Vector along(mv::Vector from, mv::Vector velocity, float steps) {
  velocity.scale(steps);
  return from + velocity;
}

// Rows count double, as on the screen.
float screenDistance(mv::Vector a, mv::Vector b) {
  const float dx = a.getX() - b.getX();
  const float dy = (a.getY() - b.getY()) * ROW_WEIGHT;
  return std::sqrt(dx * dx + dy * dy);
}

bool insideRoom(mv::Vector middle, mv::Vector half) {
  return middle.getX() - half.getX() > ROOM_LEFT - 0.5f &&
         middle.getX() + half.getX() < ROOM_RIGHT + 0.5f &&
         middle.getY() - half.getY() > ROOM_TOP - 0.5f &&
         middle.getY() + half.getY() < ROOM_BOTTOM + 0.5f;
}

// Where the hero stands after each of the next steps while `move` is held:
// one move on every other step, none through a wall.
std::vector<mv::Vector> heroPath(const Seen& hero, Move move) {
  const mv::Vector stride(move.across * COLUMNS_PER_MOVE, move.down * ROWS_PER_MOVE);
  std::vector<mv::Vector> path;
  mv::Vector at = hero.middle;
  for (int step = 0; step <= LOOKAHEAD_STEPS; step++) {
    const mv::Vector next = at + stride;
    if (step % 2 == 1 && insideRoom(next, hero.half_size)) {
      at = next;
    }
    path.push_back(at);
  }
  return path;
}

// How far apart two pictures stand, rows counting double; 0 or less where they touch.
float clearance(mv::Vector a, mv::Vector a_half, mv::Vector b, mv::Vector b_half) {
  const float across = std::fabs(a.getX() - b.getX()) - a_half.getX() - b_half.getX();
  const float down = std::fabs(a.getY() - b.getY()) - a_half.getY() - b_half.getY();
  return std::max(across, down * ROW_WEIGHT);
}

// How close `thing` comes to the hero on his path, inside `margin`, squared.
// What is further off in time may still change course, so it weighs less.
float threat(const std::vector<mv::Vector>& path, const Seen& hero, const Seen& thing,
             float margin) {
  float worst = 0;
  for (int step = 0; step < static_cast<int>(path.size()); step++) {
    const mv::Vector there = along(thing.middle, thing.velocity, static_cast<float>(step));
    const float closeness = margin - clearance(path[step], hero.half_size, there, thing.half_size);
    worst = std::max(worst, closeness / (1 + 0.05f * static_cast<float>(step)));
  }
  return worst * worst;
}

float cornered(mv::Vector at, mv::Vector half) {
  const float across =
      std::min(at.getX() - half.getX() - ROOM_LEFT, ROOM_RIGHT - at.getX() - half.getX());
  const float down =
      std::min(at.getY() - half.getY() - ROOM_TOP, ROOM_BOTTOM - at.getY() - half.getY()) *
      ROW_WEIGHT;
  return std::max(0.0f, WALL_MARGIN - across) + std::max(0.0f, WALL_MARGIN - down);
}

bool isFurnace(const Seen& enemy) { return enemy.picture.rfind("furnace", 0) == 0; }

float inFlameLines(mv::Vector at, const std::vector<Seen>& enemies) {
  float lines = 0;
  for (const Seen& enemy : enemies) {
    if (isFurnace(enemy)) {
      lines += std::fabs(at.getX() - enemy.middle.getX()) <= FURNACE_BAND ? 1 : 0;
      lines += std::fabs(at.getY() - enemy.middle.getY()) <= FURNACE_BAND ? 1 : 0;
    }
  }
  return lines;
}

// How far from where the hero wants to be: at firing distance from the
// nearest enemy, or at the quiet end of the room when there is none.
float awayFromGoal(mv::Vector at, const std::vector<Seen>& enemies) {
  if (enemies.empty()) {
    return screenDistance(at, QUIET_END);
  }
  float nearest = std::numeric_limits<float>::max();
  for (const Seen& enemy : enemies) {
    nearest = std::min(nearest, screenDistance(at, enemy.middle));
  }
  return std::fabs(nearest - FIRING_DISTANCE);
}

float cost(const Sight& sight, Move move) {
  const std::vector<mv::Vector> path = heroPath(sight.hero, move);
  float total = 0;
  for (const Seen& shot : sight.shots) {
    total += SHOT_WEIGHT * threat(path, sight.hero, shot, SHOT_MARGIN);
  }
  for (const Seen& enemy : sight.enemies) {
    total += ENEMY_WEIGHT * threat(path, sight.hero, enemy, ENEMY_MARGIN);
  }
  const mv::Vector end = path.back();
  total += awayFromGoal(end, sight.enemies);
  total += WALL_WEIGHT * cornered(end, sight.hero.half_size);
  total += FURNACE_WEIGHT * inFlameLines(end, sight.enemies);
  return total;
}

const Seen& nearestEnemy(const Sight& sight) {
  const Seen* nearest = &sight.enemies.front();
  for (const Seen& enemy : sight.enemies) {
    if (screenDistance(sight.hero.middle, enemy.middle) <
        screenDistance(sight.hero.middle, nearest->middle)) {
      nearest = &enemy;
    }
  }
  return *nearest;
}

// The point `from` + `way`, drawn back along the way until it lies in the window.
mv::Vector insideWindow(mv::Vector from, mv::Vector way, mv::Vector window) {
  float share = 1;
  const auto limit = [&share](float start, float by, float high) {
    const float low = 0.5f;
    if (start + by * share > high) {
      share = (high - start) / by;
    }
    if (start + by * share < low) {
      share = (low - start) / by;
    }
  };
  limit(from.getX(), way.getX(), window.getX() - 0.5f);
  limit(from.getY(), way.getY(), window.getY() - 0.5f);
  return along(from, way, share);
}

}  // namespace

bool operator==(Move a, Move b) { return a.across == b.across && a.down == b.down; }

Move chooseMove(const Sight& sight, Move last, std::mt19937& random) {
  std::uniform_real_distribution<float> whim(0, WHIM);
  Move best;
  float best_cost = std::numeric_limits<float>::max();
  for (int across = -1; across <= 1; across++) {
    for (int down = -1; down <= 1; down++) {
      const Move move{across, down};
      const float c = cost(sight, move) + whim(random) - (move == last ? STEADINESS : 0);
      if (c < best_cost) {
        best_cost = c;
        best = move;
      }
    }
  }
  return best;
}

mv::Vector aimAt(const Sight& sight, float bullet_speed, std::mt19937& random) {
  const Seen& enemy = nearestEnemy(sight);
  const mv::Vector muzzle = sight.hero.middle + MUZZLE;
  // Where the enemy will be when the bullet gets there, found in two rounds.
  mv::Vector target = enemy.middle;
  for (int round = 0; round < 2; round++) {
    const float flight = mv::distance(muzzle, target) / bullet_speed;
    target = along(enemy.middle, enemy.velocity, flight);
  }
  std::normal_distribution<float> spread(0, AIM_SPREAD);
  target = target + mv::Vector(spread(random), spread(random));
  // The hero fires from his middle towards the mouse, and the bullet starts
  // at the muzzle: the mouse goes where the muzzle's line points.
  return insideWindow(sight.hero.middle, target - muzzle, sight.screen_size);
}

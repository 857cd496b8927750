// The building blocks of every sound: oscillators, noise, an envelope, a low-pass filter and a
// mixer. All sounds are mono floats between -1 and 1 at one sample rate.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace soundmaker {

constexpr int kSampleRate = 22050;

using Samples = std::vector<float>;

std::size_t toSamples(double seconds);

// The key number of a note written as a letter, an optional '#' or 'b' and an octave digit:
// "A4" is 69, "C#5" is 73. Throws std::invalid_argument on anything else.
int keyNumber(const std::string& name);
double keyFrequency(double key);

enum class Wave { kSine, kPulse, kTriangle };

// Keeps its phase from one sample to the next, so the pitch may move under it without clicks.
class Oscillator {
 public:
  explicit Oscillator(Wave wave, double duty = 0.5);
  // The next sample at this frequency: between -1 and 1 and centred on 0 whatever the duty.
  float next(double frequency);

 private:
  Wave wave;
  double duty;
  double phase = 0;
};

// White noise from a fixed seed, so that every run makes the same sounds.
class Noise {
 public:
  explicit Noise(std::uint32_t seed);
  float next();
  // Noise that keeps each value for 1/rate seconds: the coarse crunch of old sound chips,
  // lower and grittier as the rate falls.
  float nextHeld(double rate);

 private:
  std::mt19937 generator;
  float held = 0;
  double hold_phase = 1;
};

// Attack, decay and release in seconds; sustain is the level, from 0 to 1, held after the decay.
struct Envelope {
  double attack;
  double decay;
  double sustain;
  double release;

  // The loudness at time t of a note held for `held` seconds; 0 once the release is over.
  float level(double t, double held) const;

 private:
  float heldLevel(double t) const;
};

// Two one-pole stages: a gentle 12 dB per octave slope that takes the fizz off bright waves.
class LowPass {
 public:
  explicit LowPass(double cutoff);
  void setCutoff(double cutoff);
  float next(float input);

 private:
  double coefficient = 0;
  double first = 0;
  double second = 0;
};

// How a tone is played: its wave, how its loudness moves, how bright it is and how it wobbles.
struct Voice {
  Wave wave = Wave::kPulse;
  double duty = 0.5;
  Envelope envelope{0.005, 0.1, 0.7, 0.05};
  double cutoff = 4000;
  // The vibrato sets in after a delay, as a held note's would, and moves the pitch by this
  // fraction of itself.
  double vibrato_depth = 0;
  double vibrato_rate = 5.5;
  double vibrato_delay = 0.2;
};

// A voice for struck sounds: a quick attack, then a fall to silence over `decay` seconds.
Voice struck(Wave wave, double decay, double cutoff);

// A tone held for `held` seconds that slides from `from` to `to` Hz over its whole length,
// evenly in pitch; it lasts until the end of its release.
Samples renderTone(const Voice& voice, double from, double to, double held);
Samples renderTone(const Voice& voice, double frequency, double held);
// A struck tone, held only through its attack and decay: with a sustain of 0 it dies away alone.
Samples renderStrike(const Voice& voice, double from, double to);

// A burst of noise. Its grain (how often the noise takes a new value; the sample rate gives
// smooth hiss, a few thousand a crunch) and its low-pass cutoff slide evenly in pitch from the
// first value to the second.
struct NoiseBurst {
  Envelope envelope;
  double held;
  double grain_from;
  double grain_to;
  double cutoff_from;
  double cutoff_to;
  std::uint32_t seed;
};
Samples renderNoise(const NoiseBurst& burst);

// Keeps what lies above the cutoff: the sound less its low-passed part.
void highPass(Samples& samples, double cutoff);

// Adds `source` times `gain` into `mix` from sample `start`; what runs past the end is lost.
void mixInto(Samples& mix, const Samples& source, std::size_t start, float gain);
// The same, but what runs past the end comes in again at the start, as it will when the loop
// is played again.
void mixAround(Samples& loop, const Samples& source, std::size_t start, float gain);

// Warms a sound up: loud parts are rounded off instead of clipped.
void saturate(Samples& samples, float drive);
void removeDc(Samples& samples);
void scaleToPeak(Samples& samples, double peak_dbfs);

}  // namespace soundmaker

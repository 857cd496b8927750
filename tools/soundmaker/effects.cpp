#include "effects.h"

#include <algorithm>

namespace soundmaker {

namespace {

// Sets the loudness. The sounds die away on their own, but one cut short by its length, or
// rounded to a last sample off zero, would stop with a tick: a few milliseconds fade that out.
void finish(Samples& sound, double peak_dbfs) {
  scaleToPeak(sound, peak_dbfs);
  const std::size_t fade = std::min(sound.size(), toSamples(0.004));
  for (std::size_t i = 0; i < fade; ++i) {
    sound[sound.size() - 1 - i] *= static_cast<float>(i) / fade;
  }
}

// A mellow horn: the voice's pulse wave, rounded out by a triangle an octave below.
void mixHorn(Samples& sound, Voice voice, double from, double to, double held, double start) {
  const std::size_t at = toSamples(start);
  mixInto(sound, renderTone(voice, from, to, held), at, 0.55f);
  voice.wave = Wave::kTriangle;
  mixInto(sound, renderTone(voice, from / 2, to / 2, held), at, 0.45f);
}

}  // namespace

Samples makeDamage() {
  Samples sound(toSamples(0.25));
  mixInto(sound, renderStrike(struck(Wave::kSine, 0.22, 2000), 190, 48), 0, 1.0f);
  mixInto(sound, renderStrike(struck(Wave::kPulse, 0.12, 1400), 150, 70), 0, 0.35f);
  const NoiseBurst crunch{{0.001, 0.13, 0, 0.02}, 0.131, 4000, 700, 2200, 700, 11};
  mixInto(sound, renderNoise(crunch), 0, 0.9f);
  saturate(sound, 1.6f);
  finish(sound, -4);
  return sound;
}

Samples makeGameOver() {
  Samples sound(toSamples(1.5));
  const NoiseBurst blast{{0.003, 0.8, 0, 0.05}, 0.803, 4000, 400, 2000, 150, 23};
  mixInto(sound, renderNoise(blast), 0, 1.0f);
  mixInto(sound, renderStrike(struck(Wave::kSine, 0.6, 1000), 110, 30), 0, 1.0f);

  // A minor triad falling, then a last low note that sags a semitone as it fades.
  Voice horn;
  horn.duty = 0.5;
  horn.envelope = {0.012, 0.08, 0.75, 0.06};
  horn.cutoff = 1600;
  const double starts[] = {0.32, 0.52, 0.72};
  const char* const falling[] = {"E5", "C5", "A4"};
  for (int i = 0; i < 3; ++i) {
    const double frequency = keyFrequency(keyNumber(falling[i]));
    mixHorn(sound, horn, frequency, frequency, 0.15, starts[i]);
  }
  horn.envelope = {0.012, 0.3, 0.6, 0.2};
  horn.vibrato_depth = 0.012;
  horn.vibrato_delay = 0.1;
  mixHorn(sound, horn, keyFrequency(keyNumber("E4")), keyFrequency(keyNumber("D#4")), 0.35, 0.93);
  finish(sound, -3);
  return sound;
}

Samples makeShoot() {
  Samples sound(toSamples(0.12));
  Voice laser = struck(Wave::kPulse, 0.11, 3200);
  laser.duty = 0.35;
  mixInto(sound, renderStrike(laser, 1250, 300), 0, 1.0f);
  mixInto(sound, renderStrike(struck(Wave::kSine, 0.05, 2000), 320, 110), 0, 0.5f);
  const NoiseBurst snap{{0.001, 0.018, 0, 0.005}, 0.019, kSampleRate, 8000, 6000, 2500, 31};
  mixInto(sound, renderNoise(snap), 0, 0.35f);
  finish(sound, -10);
  return sound;
}

Samples makeUpgrade() {
  Samples sound(toSamples(0.6));
  Voice chime;
  chime.duty = 0.25;
  chime.envelope = {0.005, 0.12, 0.35, 0.15};
  chime.cutoff = 6000;
  Voice shimmer = chime;
  shimmer.wave = Wave::kSine;
  const char* const rising[] = {"D5", "F#5", "A5", "D6"};
  for (int i = 0; i < 4; ++i) {
    const bool last = i == 3;
    Voice note = chime;
    if (last) {
      note.envelope.release = 0.22;
      note.vibrato_depth = 0.006;
      note.vibrato_delay = 0.05;
    }
    const double frequency = keyFrequency(keyNumber(rising[i]));
    const double held = last ? 0.2 : 0.1;
    const std::size_t start = toSamples(0.06 * i);
    mixInto(sound, renderTone(note, frequency, held), start, 0.5f);
    mixInto(sound, renderTone(shimmer, frequency * 2, held), start, 0.2f);
  }
  finish(sound, -5);
  return sound;
}

}  // namespace soundmaker

#include "synth.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace soundmaker {

namespace {

constexpr double kPi = 3.14159265358979323846;

// Softens a jump of the pulse wave that falls at `phase` 0 over the samples beside it, so
// that high notes do not fold back into the hearing range as a harsh whine.
double smoothedStep(double phase, double step) {
  if (phase < step) {
    const double x = phase / step;
    return x + x - x * x - 1;
  }
  if (phase > 1 - step) {
    const double x = (phase - 1) / step;
    return x * x + x + x + 1;
  }
  return 0;
}

double pulse(double phase, double step, double duty) {
  double value = phase < duty ? 1 : -1;
  value += smoothedStep(phase, step);
  value -= smoothedStep(std::fmod(phase + 1 - duty, 1.0), step);
  // A narrow pulse spends more time low than high; take that offset away.
  return value - (2 * duty - 1);
}

double triangle(double phase) { return phase < 0.5 ? 4 * phase - 1 : 3 - 4 * phase; }

}  // namespace

std::size_t toSamples(double seconds) {
  return static_cast<std::size_t>(std::lround(std::max(seconds, 0.0) * kSampleRate));
}

int keyNumber(const std::string& name) {
  static const std::string kLetters = "CDEFGAB";
  static const int kSemitones[] = {0, 2, 4, 5, 7, 9, 11};
  const auto letter = name.empty() ? std::string::npos : kLetters.find(name[0]);
  std::size_t at = 1;
  int accidental = 0;
  if (at < name.size() && (name[at] == '#' || name[at] == 'b')) {
    accidental = name[at] == '#' ? 1 : -1;
    ++at;
  }
  if (letter == std::string::npos || at + 1 != name.size() || name[at] < '0' || name[at] > '9') {
    throw std::invalid_argument("not a note name: \"" + name + "\"");
  }
  const int octave = name[at] - '0';
  return 12 * (octave + 1) + kSemitones[letter] + accidental;
}

double keyFrequency(double key) { return 440.0 * std::pow(2.0, (key - 69) / 12); }

Oscillator::Oscillator(Wave wave, double duty) : wave(wave), duty(duty) {}

float Oscillator::next(double frequency) {
  const double step = std::min(frequency / kSampleRate, 0.5);
  double value = 0;
  switch (wave) {
    case Wave::kSine:
      value = std::sin(2 * kPi * phase);
      break;
    case Wave::kPulse:
      value = pulse(phase, step, duty);
      break;
    case Wave::kTriangle:
      value = triangle(phase);
      break;
  }
  phase = std::fmod(phase + step, 1.0);
  return static_cast<float>(value);
}

Noise::Noise(std::uint32_t seed) : generator(seed) {}

// Scaled by hand from the raw generator, whose output the standard fixes, so that the same seed
// gives the same noise with any standard library.
float Noise::next() {
  const double unit = static_cast<double>(generator()) / 4294967296.0;
  return static_cast<float>(2 * unit - 1);
}

float Noise::nextHeld(double rate) {
  hold_phase += rate / kSampleRate;
  if (hold_phase >= 1) {
    hold_phase -= std::floor(hold_phase);
    held = next();
  }
  return held;
}

float Envelope::heldLevel(double t) const {
  if (t < attack) {
    return static_cast<float>(t / attack);
  }
  t -= attack;
  if (t < decay) {
    const double rest = 1 - t / decay;
    return static_cast<float>(sustain + (1 - sustain) * rest * rest);
  }
  return static_cast<float>(sustain);
}

float Envelope::level(double t, double held) const {
  if (t < held) {
    return heldLevel(t);
  }
  const double released = release > 0 ? (t - held) / release : 1;
  if (released >= 1) {
    return 0;
  }
  const double rest = 1 - released;
  return static_cast<float>(heldLevel(held) * rest * rest);
}

LowPass::LowPass(double cutoff) { setCutoff(cutoff); }

void LowPass::setCutoff(double cutoff) {
  coefficient = 1 - std::exp(-2 * kPi * cutoff / kSampleRate);
}

float LowPass::next(float input) {
  first += coefficient * (input - first);
  second += coefficient * (first - second);
  return static_cast<float>(second);
}

Voice struck(Wave wave, double decay, double cutoff) {
  Voice voice;
  voice.wave = wave;
  voice.envelope = {0.002, decay, 0, 0.01};
  voice.cutoff = cutoff;
  return voice;
}

Samples renderTone(const Voice& voice, double from, double to, double held) {
  const double length = held + voice.envelope.release;
  Samples tone(toSamples(length));
  Oscillator oscillator(voice.wave, voice.duty);
  LowPass filter(voice.cutoff);
  Oscillator vibrato(Wave::kSine);
  for (std::size_t i = 0; i < tone.size(); ++i) {
    const double t = static_cast<double>(i) / kSampleRate;
    const double wobble = vibrato.next(voice.vibrato_rate) * voice.vibrato_depth *
                          std::clamp((t - voice.vibrato_delay) / 0.1, 0.0, 1.0);
    const double frequency = from * std::pow(to / from, t / length) * (1 + wobble);
    tone[i] = filter.next(oscillator.next(frequency)) * voice.envelope.level(t, held);
  }
  return tone;
}

Samples renderTone(const Voice& voice, double frequency, double held) {
  return renderTone(voice, frequency, frequency, held);
}

Samples renderStrike(const Voice& voice, double from, double to) {
  return renderTone(voice, from, to, voice.envelope.attack + voice.envelope.decay);
}

Samples renderNoise(const NoiseBurst& burst) {
  const double length = burst.held + burst.envelope.release;
  Samples noise(toSamples(length));
  Noise source(burst.seed);
  LowPass filter(burst.cutoff_from);
  for (std::size_t i = 0; i < noise.size(); ++i) {
    const double t = static_cast<double>(i) / kSampleRate;
    const double progress = t / length;
    filter.setCutoff(burst.cutoff_from * std::pow(burst.cutoff_to / burst.cutoff_from, progress));
    const double grain = burst.grain_from * std::pow(burst.grain_to / burst.grain_from, progress);
    noise[i] = filter.next(source.nextHeld(grain)) * burst.envelope.level(t, burst.held);
  }
  return noise;
}

void highPass(Samples& samples, double cutoff) {
  LowPass filter(cutoff);
  for (float& sample : samples) {
    sample -= filter.next(sample);
  }
}

void mixInto(Samples& mix, const Samples& source, std::size_t start, float gain) {
  for (std::size_t i = 0; i < source.size() && start + i < mix.size(); ++i) {
    mix[start + i] += gain * source[i];
  }
}

void mixAround(Samples& loop, const Samples& source, std::size_t start, float gain) {
  if (loop.empty()) {
    return;
  }
  for (std::size_t i = 0; i < source.size(); ++i) {
    loop[(start + i) % loop.size()] += gain * source[i];
  }
}

void saturate(Samples& samples, float drive) {
  for (float& sample : samples) {
    sample = std::tanh(drive * sample) / std::tanh(drive);
  }
}

void removeDc(Samples& samples) {
  if (samples.empty()) {
    return;
  }
  const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / samples.size();
  for (float& sample : samples) {
    sample -= static_cast<float>(mean);
  }
}

void scaleToPeak(Samples& samples, double peak_dbfs) {
  float loudest = 0;
  for (float sample : samples) {
    loudest = std::max(loudest, std::abs(sample));
  }
  if (loudest == 0) {
    return;
  }
  const auto gain = static_cast<float>(std::pow(10.0, peak_dbfs / 20) / loudest);
  for (float& sample : samples) {
    sample *= gain;
  }
}

}  // namespace soundmaker

#include "theme.h"

#include <array>
#include <vector>

namespace soundmaker {

namespace {

// 105 beats a minute makes a sixteenth note exactly 3150 samples long, so every note starts on
// a whole sample and the loop is a whole number of bars.
constexpr double kBeatsPerMinute = 105;
constexpr int kBeatsPerBar = 4;
constexpr int kStepsPerBar = 16;
constexpr int kBars = 16;

struct Note {
  double beat;
  double beats;
  int key;
};

Note note(double beat, double beats, const char* pitch) { return {beat, beats, keyNumber(pitch)}; }

double beatSeconds(double beats) { return beats * 60 / kBeatsPerMinute; }
std::size_t beatSample(double beat) { return toSamples(beatSeconds(beat)); }
double barBeat(int bar) { return static_cast<double>(bar) * kBeatsPerBar; }
double stepBeat(int bar, int step) {
  return barBeat(bar) + step * static_cast<double>(kBeatsPerBar) / kStepsPerBar;
}

// Plays notes from `first_beat` on; each sounds for `legato` of its written length, so that
// repeated notes are heard apart.
void play(Samples& track, const Voice& voice, const std::vector<Note>& notes, double first_beat,
          double legato, float gain) {
  for (const Note& n : notes) {
    const Samples tone = renderTone(voice, keyFrequency(n.key), beatSeconds(n.beats) * legato);
    mixAround(track, tone, beatSample(first_beat + n.beat), gain);
  }
}

// The progression runs twice through the loop: D minor, B flat, F, C, then D minor, B flat,
// G minor and the dominant A, which leads home to the D minor at the start. Each chord has its bass
// root and the three pad notes, voiced close so the pad moves by small steps.
struct Chord {
  const char* root;
  std::array<const char*, 3> pad;
};

const std::array<Chord, 8> kProgression = {{
    {"D2", {"F3", "A3", "D4"}},
    {"Bb1", {"F3", "Bb3", "D4"}},
    {"F2", {"F3", "A3", "C4"}},
    {"C2", {"E3", "G3", "C4"}},
    {"D2", {"F3", "A3", "D4"}},
    {"Bb1", {"F3", "Bb3", "D4"}},
    {"G1", {"G3", "Bb3", "D4"}},
    {"A1", {"E3", "A3", "C#4"}},
}};

const Chord& chordOf(int bar) { return kProgression[bar % kProgression.size()]; }

// The intro's bass holds two notes a bar; from the fifth bar on it drives in a 3-3-2 rhythm,
// rising to the octave and the fifth.
std::vector<Note> bassLine() {
  // Step in the bar, length in steps, and the interval above the root.
  const std::array<std::array<int, 3>, 6> kPattern = {
      {{0, 3, 0}, {3, 3, 0}, {6, 2, 12}, {8, 3, 0}, {11, 3, 0}, {14, 2, 7}}};
  std::vector<Note> line;
  for (int bar = 0; bar < kBars; ++bar) {
    const int root = keyNumber(chordOf(bar).root);
    if (bar < 4) {
      line.push_back({barBeat(bar), 2, root});
      line.push_back({barBeat(bar) + 2, 2, root});
      continue;
    }
    for (const auto& [step, steps, interval] : kPattern) {
      line.push_back({stepBeat(bar, step), steps / 4.0, root + interval});
    }
  }
  return line;
}

// Eighth notes up and down the chord an octave above the pad, between the melody's two phrases.
std::vector<Note> arpeggio(int first_bar, int bars) {
  const std::array<int, 8> kOrder = {0, 1, 2, 3, 2, 1, 0, 1};
  std::vector<Note> notes;
  for (int bar = first_bar; bar < first_bar + bars; ++bar) {
    const auto& pad = chordOf(bar).pad;
    const std::array<int, 4> tones = {keyNumber(pad[0]) + 12, keyNumber(pad[1]) + 12,
                                      keyNumber(pad[2]) + 12, keyNumber(pad[0]) + 24};
    for (int i = 0; i < 8; ++i) {
      notes.push_back({barBeat(bar) + i * 0.5, 0.5, tones[kOrder[i]]});
    }
  }
  return notes;
}

// The melody's two phrases over D minor, B flat, G minor and A: the first falls to rest on the
// dominant's fifth, the second answers from higher up and ends on C sharp, which leads into the
// D that starts the loop again.
std::vector<Note> callPhrase() {
  return {note(0, 1.5, "D5"),     note(1.5, 0.5, "A4"), note(2, 1, "F4"),    note(3, 1, "A4"),
          note(4, 1.5, "Bb4"),    note(5.5, 0.5, "A4"), note(6, 1.5, "F4"),  note(7.5, 0.5, "D4"),
          note(8, 1, "G4"),       note(9, 1, "Bb4"),    note(10, 1, "D5"),   note(11, 0.5, "C5"),
          note(11.5, 0.5, "Bb4"), note(12, 2, "A4"),    note(14, 0.5, "G4"), note(14.5, 0.5, "F4"),
          note(15, 1, "E4")};
}

std::vector<Note> answerPhrase() {
  return {note(0, 1.5, "F5"),     note(1.5, 0.5, "E5"), note(2, 1, "D5"),       note(3, 1, "A4"),
          note(4, 1.5, "D5"),     note(5.5, 0.5, "C5"), note(6, 1, "Bb4"),      note(7, 1, "F4"),
          note(8, 1, "G4"),       note(9, 0.5, "A4"),   note(9.5, 0.5, "Bb4"),  note(10, 1.5, "D5"),
          note(11.5, 0.5, "Bb4"), note(12, 1.5, "E5"),  note(13.5, 0.5, "C#5"), note(14, 1, "A4"),
          note(15, 1, "C#5")};
}

// Repeats of the track a dotted eighth apart, each softer, wrapping around the loop's end.
void addEcho(Samples& track) {
  const Samples dry = track;
  const std::size_t delay = beatSample(0.75);
  mixAround(track, dry, delay, 0.3f);
  mixAround(track, dry, 2 * delay, 0.1f);
}

Samples pads(std::size_t length) {
  Samples track(length);
  Voice pad;
  pad.envelope = {0.3, 0.6, 0.7, 0.6};
  pad.cutoff = 1100;
  // Two copies a few cents apart beat slowly against each other and make the chord breathe.
  for (double detune : {-0.06, 0.06}) {
    for (int bar = 0; bar < kBars; ++bar) {
      for (const char* pitch : chordOf(bar).pad) {
        const double frequency = keyFrequency(keyNumber(pitch) + detune);
        mixAround(track, renderTone(pad, frequency, beatSeconds(kBeatsPerBar)),
                  beatSample(barBeat(bar)), 0.5f);
      }
    }
  }
  return track;
}

Samples bass(std::size_t length) {
  Samples track(length);
  Voice voice;
  voice.duty = 0.3;
  voice.envelope = {0.006, 0.18, 0.5, 0.06};
  voice.cutoff = 650;
  play(track, voice, bassLine(), 0, 0.85, 1.0f);
  saturate(track, 2.0f);
  return track;
}

Samples lead(std::size_t length) {
  Samples track(length);
  Voice melody;
  melody.duty = 0.25;
  melody.envelope = {0.012, 0.25, 0.55, 0.15};
  melody.cutoff = 2600;
  melody.vibrato_depth = 0.005;
  melody.vibrato_delay = 0.25;
  play(track, melody, callPhrase(), barBeat(4), 0.9, 1.0f);
  play(track, melody, answerPhrase(), barBeat(12), 0.9, 1.0f);

  Voice blip;
  blip.duty = 0.125;
  blip.envelope = {0.004, 0.15, 0.25, 0.08};
  blip.cutoff = 2400;
  play(track, blip, arpeggio(8, 4), 0, 0.9, 0.7f);
  addEcho(track);
  return track;
}

Samples kick() { return renderStrike(struck(Wave::kSine, 0.25, 1500), 120, 42); }

Samples snare() {
  Samples hit = renderStrike(struck(Wave::kTriangle, 0.07, 2000), 200, 160);
  const NoiseBurst rattle{{0.001, 0.14, 0, 0.02}, 0.141, kSampleRate, kSampleRate, 4500, 3000, 7};
  Samples noise = renderNoise(rattle);
  highPass(noise, 900);
  mixInto(hit, noise, 0, 1.0f);
  return hit;
}

Samples hat() {
  const NoiseBurst tick{{0.001, 0.035, 0, 0.01}, 0.036, kSampleRate, kSampleRate, 9000, 9000, 13};
  Samples noise = renderNoise(tick);
  highPass(noise, 5000);
  return noise;
}

// A small tuned anvil: the partials of a struck metal bar, the higher ones dying first.
Samples clank() {
  const double base = keyFrequency(keyNumber("D5"));
  Samples hit = renderStrike(struck(Wave::kSine, 0.3, 8000), base, base);
  mixInto(hit, renderStrike(struck(Wave::kSine, 0.14, 8000), base * 2.76, base * 2.76), 0, 0.4f);
  mixInto(hit, renderStrike(struck(Wave::kSine, 0.07, 8000), base * 5.4, base * 5.4), 0, 0.15f);
  return hit;
}

// Kick on one and three, snare on two and four after the intro, soft offbeat hats that fill in
// to sixteenths in the second half, and the anvil every other bar.
Samples drums(std::size_t length) {
  Samples track(length);
  const Samples kick_hit = kick();
  const Samples snare_hit = snare();
  const Samples hat_hit = hat();
  const Samples clank_hit = clank();
  const auto at = [&](const Samples& hit, int bar, int step, float gain) {
    mixAround(track, hit, beatSample(stepBeat(bar, step)), gain);
  };
  for (int bar = 0; bar < kBars; ++bar) {
    const bool intro = bar < 4;
    const bool phrase_end = bar % 4 == 3;
    at(kick_hit, bar, 0, 1.0f);
    at(kick_hit, bar, 8, 1.0f);
    if (phrase_end) {
      at(kick_hit, bar, 10, 0.7f);
    }
    if (!intro) {
      at(snare_hit, bar, 4, 0.45f);
      at(snare_hit, bar, 12, 0.45f);
    }
    // A snare roll swells out of the intro.
    if (bar == 3) {
      at(snare_hit, bar, 13, 0.15f);
      at(snare_hit, bar, 14, 0.25f);
      at(snare_hit, bar, 15, 0.35f);
    }
    for (int step = 0; step < kStepsPerBar; ++step) {
      if (step % 4 == 2) {
        at(hat_hit, bar, step, 0.22f);
      } else if (step % 2 == 1 && bar >= 8) {
        at(hat_hit, bar, step, 0.1f);
      }
    }
    if (bar % 2 == 1) {
      at(clank_hit, bar, 14, 0.12f);
    }
  }
  return track;
}

}  // namespace

Samples makeTheme() {
  const std::size_t length = beatSample(barBeat(kBars));
  Samples loop(length);
  mixInto(loop, bass(length), 0, 0.42f);
  mixInto(loop, pads(length), 0, 0.18f);
  mixInto(loop, lead(length), 0, 0.36f);
  mixInto(loop, drums(length), 0, 0.55f);
  removeDc(loop);
  scaleToPeak(loop, -6);
  return loop;
}

}  // namespace soundmaker

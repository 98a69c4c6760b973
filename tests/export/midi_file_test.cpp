// The MIDI file of a small score, parsed back by a reader written here:
// its header, track names, tempo map, the placing of unbeated and beated
// phrases, grace notes, and every note's pitch against the just ratios.
#include "export/midi_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

namespace {

struct Event {
  std::uint32_t tick;
  std::uint8_t status;
  std::vector<std::uint8_t> data;  // after the status (a meta event: type, then text)
};
struct Midi {
  int format = 0, division = 0;
  std::vector<std::vector<Event>> tracks;
};

std::uint32_t readVariable(const std::vector<std::uint8_t>& b, std::size_t& at) {
  std::uint32_t v = 0;
  while (true) {
    const std::uint8_t c = b.at(at++);
    v = (v << 7) | (c & 0x7F);
    if (!(c & 0x80)) return v;
  }
}

Midi parse(const std::vector<std::uint8_t>& b) {
  auto big = [&](std::size_t at, int n) {
    std::uint32_t v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | b.at(at + i);
    return v;
  };
  Midi m;
  EXPECT_EQ(std::string(b.begin(), b.begin() + 4), "MThd");
  m.format = static_cast<int>(big(8, 2));
  const int count = static_cast<int>(big(10, 2));
  m.division = static_cast<int>(big(12, 2));
  std::size_t at = 14;
  for (int t = 0; t < count; ++t) {
    EXPECT_EQ(std::string(b.begin() + long(at), b.begin() + long(at) + 4), "MTrk");
    const std::size_t end = at + 8 + big(at + 4, 4);
    at += 8;
    std::vector<Event> events;
    std::uint32_t tick = 0;
    while (at < end) {
      tick += readVariable(b, at);
      Event e{tick, b.at(at++), {}};
      std::size_t length = (e.status & 0xF0) == 0xC0 ? 1 : 2;
      if (e.status == 0xFF) {
        e.data.push_back(b.at(at++));
        length = readVariable(b, at);
      }
      e.data.insert(e.data.end(), b.begin() + long(at), b.begin() + long(at + length));
      at += length;
      events.push_back(e);
    }
    EXPECT_EQ(at, end);
    m.tracks.push_back(events);
  }
  EXPECT_EQ(at, b.size());
  return m;
}

std::string metaText(const std::vector<Event>& track, std::uint8_t type) {
  for (const Event& e : track)
    if (e.status == 0xFF && e.data[0] == type) return {e.data.begin() + 1, e.data.end()};
  return "";
}

// Just ratios to Sa, by semitones, and the equal-tempered Sa of tonic 5
// (D#3, 155.56 Hz): the references the file is checked against.
const double kRatios[] = {1.0, 16.0 / 15, 9.0 / 8, 6.0 / 5, 5.0 / 4, 4.0 / 3, 45.0 / 32,
                          3.0 / 2, 8.0 / 5, 5.0 / 3, 9.0 / 5, 15.0 / 8};
double justHz(int noteId) {
  const int semis = noteId - 12, octave = static_cast<int>(std::floor(semis / 12.0));
  return 155.5635 * kRatios[semis - 12 * octave] * std::exp2(octave);
}

// An alap phrase (no beat) of every note from lower P to upper S with a
// grace note on the second, then a composition at 750 ms a beat with three
// strokes.
Score sampleScore() {
  Score s;
  s.ragaName = "Yaman";
  s.tonicId = 5;
  ScorePhrase alap;
  for (int id = 7, at = 0; id <= 24; ++id, at += 500) alap.notes.push_back({id, id == 8 ? 14 : -1, at, 500});
  ScorePhrase gat;
  gat.beatMs = 750;
  gat.notes = {{12, -1, 0, 750}, {14, -1, 750, 1500}};
  gat.strokes = {{0, 1}, {750, 2}, {1500, 5}};
  s.items = {{"Alap", {alap}, {}, {}}, {"Bandish", {gat}, {}, {}}};
  return s;
}

TEST(MidiFile, ReadsBackWithItsTracksTempiAndPlacing) {
  const Midi m = parse(fMakeMidiFile(sampleScore()));
  EXPECT_EQ(m.format, 1);
  EXPECT_EQ(m.division, 960);
  ASSERT_EQ(m.tracks.size(), 4u);
  EXPECT_EQ(metaText(m.tracks[0], 0x03), "Yaman");
  EXPECT_EQ(metaText(m.tracks[0], 0x01), "Raga Yaman");
  EXPECT_EQ(metaText(m.tracks[1], 0x03), "Melody (harmonium)");
  EXPECT_EQ(metaText(m.tracks[2], 0x03), "Tabla (theka)");
  EXPECT_EQ(metaText(m.tracks[3], 0x03), "Drone (tanpura)");

  // 18 alap notes of 500 ms at 120 a minute, a 1500 ms pause, then 750 ms beats
  std::map<std::uint32_t, std::uint32_t> tempi;
  for (const Event& e : m.tracks[0])
    if (e.status == 0xFF && e.data[0] == 0x51) tempi[e.tick] = (e.data[1] << 16) | (e.data[2] << 8) | e.data[3];
  const std::uint32_t gatTick = 960 * (18 + 3);
  EXPECT_EQ(tempi, (std::map<std::uint32_t, std::uint32_t>{{0, 500000}, {gatTick, 750000}}));

  std::vector<std::uint32_t> strokeTicks;
  for (const Event& e : m.tracks[2])
    if (e.status == 0x99) strokeTicks.push_back(e.tick);
  EXPECT_EQ(strokeTicks, (std::vector<std::uint32_t>{gatTick, gatTick, gatTick + 960, gatTick + 960,
                                                      gatTick + 1920}));  // Dha and Dhin are two keys each
}

TEST(MidiFile, EveryNoteSoundsWithinTwoCentsOfItsJustPitch) {
  const Score score = sampleScore();
  const Midi m = parse(fMakeMidiFile(score));
  // RPN 0 sets the bend range to 2 semitones before the first note
  std::vector<int> rpn;
  for (const Event& e : m.tracks[1])
    if (e.status == 0xB0) rpn.push_back(e.data[0] * 1000 + e.data[1]);
  ASSERT_GE(rpn.size(), 3u);
  EXPECT_EQ(std::vector<int>(rpn.begin(), rpn.begin() + 3), (std::vector<int>{101000, 100000, 6002}));

  std::vector<int> expected;  // note ids in order, grace notes before their note
  for (const ScoreItem& item : score.items)
    for (const ScorePhrase& p : item.phrases)
      for (const ScoreNote& n : p.notes) {
        if (n.graceNoteId >= 0) expected.push_back(n.graceNoteId);
        expected.push_back(n.noteId);
      }
  int bend = 8192;
  std::size_t k = 0;
  std::uint32_t graceOn = 0;
  for (const Event& e : m.tracks[1]) {
    if (e.status == 0xE0) bend = e.data[0] | (e.data[1] << 7);
    if (e.status != 0x90) continue;
    ASSERT_LT(k, expected.size());
    const double played = 440.0 * std::exp2((e.data[0] + (bend - 8192) / 4096.0 - 69) / 12.0);
    EXPECT_NEAR(1200 * std::log2(played / justHz(expected[k])), 0.0, 2.0) << "note " << k;
    if (k == 1) graceOn = e.tick;
    if (k == 2) {
      EXPECT_EQ(e.tick - graceOn, 960u * 70 / 500) << "a 70 ms grace note before its main note";
    }
    ++k;
  }
  EXPECT_EQ(k, expected.size());
}

}  // namespace

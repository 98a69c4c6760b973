// Writing a score as a standard MIDI file: the tempo map from the phrases,
// events placed by milliseconds through it, tracks serialised with delta
// times.
#include "export/midi_file.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "tonvex/seed_design.h"

namespace {

constexpr int kMelodyChannel = 0, kDroneFirstStringChannel = 1, kDroneSaChannel = 2, kTablaChannel = 9;
constexpr int kReedOrganProgram = 20, kSitarProgram = 104;  // General MIDI, from 0
constexpr int kMiddleSaId = 12;
constexpr int kDroneCycleMs = 3200;
constexpr int kStrokeMs = 120;

// An event at a tick; `order` puts note-offs before bends before note-ons
// where they share a tick, so that a bend never reaches a sounding note.
struct Event {
  std::uint32_t tick = 0;
  int order = 0;
  std::vector<std::uint8_t> bytes;
};
enum EventOrder { kMeta = 0, kNoteOff = 1, kControl = 2, kNoteOn = 3 };

// Where a stretch of constant tempo starts, in milliseconds and in ticks.
struct TempoSpan {
  double startMs = 0;
  double startTick = 0;
  int usPerQuarter = 500000;
};

class TempoMap {
 public:
  void add(double startMs, int usPerQuarter) {
    if (!spans_.empty() && spans_.back().usPerQuarter == usPerQuarter) return;
    if (!spans_.empty() && spans_.back().startMs == startMs) {
      spans_.back().usPerQuarter = usPerQuarter;
      return;
    }
    spans_.push_back({startMs, spans_.empty() ? 0.0 : tickAt(startMs), usPerQuarter});
  }
  double tickAt(double ms) const {
    const TempoSpan* span = &spans_.front();
    for (const TempoSpan& s : spans_)
      if (s.startMs <= ms) span = &s;
    return span->startTick + (ms - span->startMs) * 1000.0 * kMidiTicksPerQuarter / span->usPerQuarter;
  }
  std::uint32_t tick(double ms) const { return static_cast<std::uint32_t>(std::llround(tickAt(ms))); }
  const std::vector<TempoSpan>& spans() const { return spans_; }

 private:
  std::vector<TempoSpan> spans_;
};

int usPerQuarterFor(const ScorePhrase& phrase) {
  return phrase.beatMs > 0 ? phrase.beatMs * 1000 : 60'000'000 / kUnbeatedTempoBpm;
}

// Start of every phrase in the whole score, in ms, in order, and its end.
struct Placed {
  const ScorePhrase* phrase;
  double startMs;
};

std::vector<Placed> placePhrases(const Score& score, std::vector<std::pair<double, std::string>>& itemStarts,
                                 double& endMs) {
  std::vector<Placed> placed;
  double at = 0;
  for (const ScoreItem& item : score.items) {
    if (&item != &score.items.front()) at += kPauseBetweenItemsMs;
    itemStarts.push_back({at, item.title});
    for (const ScorePhrase& phrase : item.phrases) {
      placed.push_back({&phrase, at});
      at += phrase.lengthMs();
    }
  }
  endMs = at;
  return placed;
}

void putVariableLength(std::vector<std::uint8_t>& out, std::uint32_t value) {
  std::uint8_t bytes[5];
  int n = 0;
  do {
    bytes[n++] = value & 0x7F;
    value >>= 7;
  } while (value);
  while (n--) out.push_back(static_cast<std::uint8_t>(bytes[n] | (n ? 0x80 : 0)));
}

void putBigEndian(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

Event meta(std::uint32_t tick, std::uint8_t type, const std::string& text) {
  Event e{tick, kMeta, {0xFF, type}};
  putVariableLength(e.bytes, static_cast<std::uint32_t>(text.size()));
  e.bytes.insert(e.bytes.end(), text.begin(), text.end());
  return e;
}

Event tempoEvent(std::uint32_t tick, int usPerQuarter) {
  Event e{tick, kMeta, {0xFF, 0x51, 0x03}};
  putBigEndian(e.bytes, static_cast<std::uint32_t>(usPerQuarter), 3);
  return e;
}

Event control(std::uint32_t tick, int channel, int number, int value) {
  return {tick, kControl, {static_cast<std::uint8_t>(0xB0 | channel), static_cast<std::uint8_t>(number),
                           static_cast<std::uint8_t>(value)}};
}

// Program and a bend range of kPitchBendRangeSemitones by RPN 0, the RPN
// then closed (127/127) so that later data entries change nothing.
void setUpChannel(std::vector<Event>& track, int channel, int program) {
  track.push_back({0, kControl, {static_cast<std::uint8_t>(0xC0 | channel), static_cast<std::uint8_t>(program)}});
  for (auto [number, value] : {std::pair{101, 0}, {100, 0}, {6, kPitchBendRangeSemitones}, {38, 0}, {101, 127}, {100, 127}})
    track.push_back(control(0, channel, number, value));
}

// A note of the given frequency: the bend that carries it, then the key on
// and off.
void addTunedNote(std::vector<Event>& track, int channel, double hz, std::uint32_t onTick, std::uint32_t offTick,
                  int velocity) {
  const double exactKey = 69.0 + 12.0 * std::log2(hz / 440.0);
  const int key = std::clamp(static_cast<int>(std::lround(exactKey)), 0, 127);
  const int bend = std::clamp(8192 + static_cast<int>(std::lround((exactKey - key) / kPitchBendRangeSemitones * 8192.0)),
                              0, 16383);
  const auto status = [&](int kind) { return static_cast<std::uint8_t>(kind | channel); };
  track.push_back({onTick, kControl, {status(0xE0), static_cast<std::uint8_t>(bend & 0x7F),
                                      static_cast<std::uint8_t>(bend >> 7)}});
  track.push_back({onTick, kNoteOn, {status(0x90), static_cast<std::uint8_t>(key), static_cast<std::uint8_t>(velocity)}});
  track.push_back({std::max(offTick, onTick + 1), kNoteOff, {status(0x80), static_cast<std::uint8_t>(key), 0}});
}

// The lead of a grace note: a quarter of the note, 30 to 70 ms, and never
// more than half of it (the harmonium's own rule).
double graceLeadMs(int durationMs) { return std::min(std::clamp(durationMs / 4.0, 30.0, 70.0), durationMs / 2.0); }

std::vector<Event> melodyTrack(const std::vector<Placed>& placed, const TempoMap& tempo, int tonicId) {
  std::vector<Event> track{meta(0, 0x03, "Melody (harmonium)")};
  setUpChannel(track, kMelodyChannel, kReedOrganProgram);
  for (const Placed& p : placed)
    for (const ScoreNote& n : p.phrase->notes) {
      double startMs = p.startMs + n.startMs;
      const double endMs = startMs + n.durationMs;
      if (n.graceNoteId >= 0) {
        const double leadEnd = startMs + graceLeadMs(n.durationMs);
        addTunedNote(track, kMelodyChannel, fJustNoteHz(n.graceNoteId, tonicId), tempo.tick(startMs), tempo.tick(leadEnd), 80);
        startMs = leadEnd;
      }
      addTunedNote(track, kMelodyChannel, fJustNoteHz(n.noteId, tonicId), tempo.tick(startMs), tempo.tick(endMs), 96);
    }
  return track;
}

std::vector<Event> tablaTrack(const std::vector<Placed>& placed, const TempoMap& tempo) {
  std::vector<Event> track{meta(0, 0x03, "Tabla (theka)")};
  for (const Placed& p : placed)
    for (const ScoreStroke& s : p.phrase->strokes) {
      const double ms = p.startMs + s.startMs;
      for (int key : gmKeysForBol(s.bolId)) {
        track.push_back({tempo.tick(ms), kNoteOn, {0x90 | kTablaChannel, static_cast<std::uint8_t>(key), 100}});
        track.push_back({tempo.tick(ms + kStrokeMs), kNoteOff, {0x80 | kTablaChannel, static_cast<std::uint8_t>(key), 0}});
      }
    }
  return track;
}

// The four strings of each cycle, plucked in counts of 2-1-1-2: the first
// string (lower Pa, Ma or Ni) at 0, the two middle Sa strings at 2/6 and
// 3/6, the low Sa at 4/6; each rings to the end of the cycle. The Sa
// strings share a channel (no bend); the first string has its own.
std::vector<Event> droneTrack(const Score& score, const TempoMap& tempo, double endMs) {
  std::vector<Event> track{meta(0, 0x03, "Drone (tanpura)")};
  setUpChannel(track, kDroneFirstStringChannel, kSitarProgram);
  setUpChannel(track, kDroneSaChannel, kSitarProgram);
  const int firstString = kMiddleSaId + (score.droneType == 1 ? -5 : score.droneType == 2 ? -7 : -1);
  const struct { int noteId; int sixths; int channel; } strings[] = {
      {firstString, 0, kDroneFirstStringChannel}, {kMiddleSaId, 2, kDroneSaChannel},
      {kMiddleSaId, 3, kDroneSaChannel}, {kMiddleSaId - 12, 4, kDroneSaChannel}};
  for (double cycle = 0; cycle < endMs; cycle += kDroneCycleMs)
    for (const auto& s : strings) {
      const double on = cycle + s.sixths * kDroneCycleMs / 6.0;
      if (on >= endMs) continue;
      const double off = std::min(cycle + kDroneCycleMs, endMs);
      addTunedNote(track, s.channel, fJustNoteHz(s.noteId, score.tonicId), tempo.tick(on), tempo.tick(off), 60);
    }
  return track;
}

std::vector<Event> conductorTrack(const Score& score, const TempoMap& tempo,
                                  const std::vector<std::pair<double, std::string>>& itemStarts) {
  std::vector<Event> track{meta(0, 0x03, score.ragaName), meta(0, 0x01, "Raga " + score.ragaName)};
  for (const TempoSpan& s : tempo.spans())
    track.push_back(tempoEvent(static_cast<std::uint32_t>(std::llround(s.startTick)), s.usPerQuarter));
  for (const auto& [ms, title] : itemStarts) track.push_back(meta(tempo.tick(ms), 0x06, title));
  return track;
}

void appendTrack(std::vector<std::uint8_t>& file, std::vector<Event> events) {
  std::stable_sort(events.begin(), events.end(),
                   [](const Event& a, const Event& b) { return a.tick != b.tick ? a.tick < b.tick : a.order < b.order; });
  std::vector<std::uint8_t> body;
  std::uint32_t last = 0;
  for (const Event& e : events) {
    putVariableLength(body, e.tick - last);
    body.insert(body.end(), e.bytes.begin(), e.bytes.end());
    last = e.tick;
  }
  body.insert(body.end(), {0x00, 0xFF, 0x2F, 0x00});
  file.insert(file.end(), {'M', 'T', 'r', 'k'});
  putBigEndian(file, static_cast<std::uint32_t>(body.size()), 4);
  file.insert(file.end(), body.begin(), body.end());
}

}  // namespace

std::vector<int> gmKeysForBol(int bolId) {
  // Bayan (bass) on the low conga, the dayan's open strokes on the open
  // high conga and the high bongo, closed strokes on the muted conga and
  // the side stick. The table is written out in docs/data-guide.md.
  static const std::map<int, std::vector<int>> kKeys = {
      {1, {64, 63}},  {2, {64, 60}}, {3, {62}},  {4, {60}},  {5, {63}},  {6, {65}},  {7, {64}},
      {8, {37}},      {9, {62}},     {10, {62}}, {11, {37}}, {12, {62}}, {13, {64, 60}}, {14, {64}},
      {15, {64, 60}}, {16, {62}},    {17, {64, 63}}, {18, {62}}, {19, {37}}, {20, {64, 62}}};
  const auto found = kKeys.find(bolId);
  return found == kKeys.end() ? std::vector<int>{} : found->second;
}

double fJustNoteHz(int noteId, int tonicId) {
  const double saHz = tonvex::seedHz(tonvex::kInstrumentMain, tonicId + 9);
  return saHz * tonvex::justRatio(noteId - kMiddleSaId);
}

std::vector<std::uint8_t> fMakeMidiFile(const Score& score) {
  std::vector<std::pair<double, std::string>> itemStarts;
  double endMs = 0;
  const std::vector<Placed> placed = placePhrases(score, itemStarts, endMs);
  TempoMap tempo;
  tempo.add(0, placed.empty() ? usPerQuarterFor(ScorePhrase{}) : usPerQuarterFor(*placed.front().phrase));
  for (const Placed& p : placed) tempo.add(p.startMs, usPerQuarterFor(*p.phrase));

  std::vector<std::uint8_t> file{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 4};
  putBigEndian(file, kMidiTicksPerQuarter, 2);
  appendTrack(file, conductorTrack(score, tempo, itemStarts));
  appendTrack(file, melodyTrack(placed, tempo, score.tonicId));
  appendTrack(file, tablaTrack(placed, tempo));
  appendTrack(file, droneTrack(score, tempo, endMs));
  return file;
}

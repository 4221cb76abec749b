#include "tools/assetgen/music_arrange.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>

#include "tools/assetgen/music_style.h"

namespace music {
namespace {

struct Span {
  int start, end;
  Chord chord;
};

int PlaceAbove(int pc, int low) { return low + ((pc - low) % 12 + 12) % 12; }

Chord Transposed(Chord c, int tr) {
  if (c.root >= 0) c.root = ((c.root + tr) % 12 + 12) % 12;
  if (c.bass >= 0) c.bass = ((c.bass + tr) % 12 + 12) % 12;
  return c;
}

std::vector<Span> Spans(const Section& s, int barTicks, int tr) {
  std::vector<Span> spans;
  for (size_t b = 0; b < s.chords.size(); ++b)
    for (const auto& slot : s.chords[b]) {
      int at = int(b) * barTicks + slot.start;
      if (slot.hold && !spans.empty()) spans.back().end = at + slot.dur;
      else spans.push_back({at, at + slot.dur, Transposed(slot.chord, tr)});
    }
  return spans;
}

const Span* SpanAt(const std::vector<Span>& spans, int t) {
  for (const auto& s : spans)
    if (t >= s.start && t < s.end) return s.chord.root >= 0 ? &s : nullptr;
  return nullptr;
}

// Semitones above the root for a pattern step such as "5", "10" or "5,".
int ToneOffset(std::string tok, const Chord& c) {
  int down = 0;
  while (!tok.empty() && tok.back() == ',') { tok.pop_back(); down -= 12; }
  const auto& t = c.tones;
  auto tone = [&](size_t i) { return t[i % t.size()] + 12 * int(i / t.size()); };
  int v;
  if (tok == "1") v = 0;
  else if (tok == "3") v = tone(1);
  else if (tok == "5") v = tone(2);
  else if (tok == "6") v = 9;
  else if (tok == "7") v = t.size() >= 4 ? t[3] : 12;
  else if (tok == "8") v = 12;
  else if (tok == "10") v = tone(1) + 12;
  else if (tok == "12") v = tone(2) + 12;
  else throw std::runtime_error("bad pattern step " + tok);
  return v + down;
}

std::vector<int> Voicing(const Chord& c, int low) {
  std::set<int> notes;
  for (size_t i = 0; i < c.tones.size() && notes.size() < 4; ++i) {
    if (c.tones.size() > 4 && i == 2) continue;  // a ninth chord drops its fifth
    notes.insert(PlaceAbove((c.root + c.tones[i]) % 12, low));
  }
  return {notes.begin(), notes.end()};
}

struct Builder {
  const Score& score;
  Meter meter;
  int bar;
  std::vector<std::vector<MidiNote>> notes;  // per voice

  int Accent(int t) const {
    int inBar = t % bar;
    if (inBar == 0) return 8;
    if (inBar % meter.BeatTicks() == 0) return 3;
    return -4;
  }

  void Add(size_t v, int t, int dur, int pitch, int vel) {
    const Voice& voice = score.voices[v];
    pitch += 12 * voice.octave;
    if (pitch < 0 || pitch > 127) throw std::runtime_error("note out of range in voice " + voice.name);
    // A touch of unevenness, the same on every run.
    int wobble = int((unsigned(t) / 60u * 37u + unsigned(pitch) * 11u) % 7u) - 3;
    notes[v].push_back({t, std::max(20, dur), pitch, std::clamp(vel + wobble, 1, 127)});
  }

  int Tone(const Voice& voice, const Chord& c, const std::string& tok) {
    int root = PlaceAbove(c.root, voice.low);
    if ((tok == "1" || tok == "8") && c.bass >= 0) return PlaceAbove(c.bass, voice.low) + (tok == "8" ? 12 : 0);
    return root + ToneOffset(tok, c);
  }

  void Pattern(size_t v, const std::string& style, const std::vector<Span>& spans, int bars, int base) {
    const Voice& voice = score.voices[v];
    if (style == "none") return;
    if (style == "pad" || style == "whole") {
      for (size_t i = 0; i < spans.size(); ++i) {
        if (spans[i].chord.root < 0) continue;
        const Chord& c = spans[i].chord;
        int start = spans[i].start, end = spans[i].end;
        while (style == "pad" && i + 1 < spans.size() && spans[i + 1].chord == c) end = spans[++i].end;
        std::vector<int> ps = style == "pad" ? Voicing(c, voice.low) : std::vector<int>{Tone(voice, c, "1")};
        for (int p : ps) Add(v, base + start, int((end - start) * voice.legato), p, voice.velocity + Accent(start));
      }
      return;
    }
    if (style == "walk") {
      int beat = meter.BeatTicks();
      for (int t = 0; t < bars * bar; t += beat) {
        const Span* s = SpanAt(spans, t);
        if (!s) continue;
        const Span* next = SpanAt(spans, t + beat);
        int root = Tone(voice, s->chord, "1");
        int k = (t - s->start) / beat;
        int p;
        if (next && next != s) {
          int target = Tone(voice, next->chord, "1");
          p = target + (target > root || k % 2 ? -1 : 1);
        } else {
          static const char* walk[] = {"1", "3", "5", "3"};
          p = Tone(voice, s->chord, walk[k % 4]);
          if (k % 4 == 2 && p - root > 7) p -= 12;
        }
        Add(v, base + t, int(beat * voice.legato), p, voice.velocity + Accent(t));
      }
      return;
    }
    struct Pattern pat;
    if (!FindPattern(style, meter, pat)) throw std::runtime_error("no pattern " + style + " in " + meter.Name());
    int perBar = bar / pat.step, n = int(pat.steps.size());
    for (int b = 0; b < bars; ++b)
      for (int i = 0; i < perBar; ++i) {
        const std::string& tok = pat.steps[i % n];
        if (tok == "-" || tok == ".") continue;
        int len = pat.step;
        for (int j = i + 1; j < perBar && pat.steps[j % n] == "-"; ++j) len += pat.step;
        int t = b * bar + i * pat.step;
        const Span* s = SpanAt(spans, t);
        if (!s) continue;
        len = std::min(len, s->end - t);
        std::vector<int> ps = tok == "c" ? Voicing(s->chord, voice.low) : std::vector<int>{Tone(voice, s->chord, tok)};
        for (int p : ps) Add(v, base + t, int(len * voice.legato), p, voice.velocity + Accent(t));
      }
  }

  void Drums(size_t v, const std::string& groove, int bars, int base, bool fill) {
    const Voice& voice = score.voices[v];
    std::vector<DrumLine> lines;
    if (!FindGroove(groove, meter, lines)) throw std::runtime_error("no groove " + groove + " in " + meter.Name());
    if (lines.empty()) return;
    auto play = [&](const std::vector<DrumLine>& ls, int b, int from, int to) {
      for (const auto& l : ls) {
        int steps = int(l.hits.size()), step = bar / steps;
        for (int i = 0; i < steps; ++i) {
          int t = i * step;
          char c = l.hits[i];
          if (c == '.' || t < from || t >= to) continue;
          int vel = c == 'X' ? 112 : c == 'x' ? 92 : 56;
          Add(v, base + b * bar + t, 60, l.note, vel * voice.velocity / 100);
        }
      }
    };
    for (int b = 0; b < bars; ++b) {
      bool filled = fill && b == bars - 1 && groove != "soft" && groove != "hit";
      play(lines, b, 0, filled ? bar / 2 : bar);
      if (filled) play(Fill(meter), b, bar / 2, bar);
    }
    if (groove != "soft") Add(v, base, 60, 49, 100 * voice.velocity / 100);
  }
};

int Swung(int t, double swing) {
  if (swing <= 0) return t;
  int beat = kPpq, pos = t % beat, half = beat / 2, off = int(std::lround(swing * beat));
  int mapped = pos <= half ? pos * off / half : off + (pos - half) * (beat - off) / half;
  return t - pos + mapped;
}

}  // namespace

Arrangement Arrange(const Score& score) {
  Builder b{score, score.meter, score.meter.BarTicks(), {}};
  b.notes.resize(score.voices.size());
  MidiTrack tempo;
  tempo.Name(score.title);
  tempo.TimeSignature(score.meter.num, score.meter.den);
  double quartersPerBeat = double(score.meter.BeatTicks()) / kPpq;
  double bpm = score.bpm, seconds = 0;
  std::vector<std::pair<int, double>> tempi;
  auto setTempo = [&](int t, double beatsPerMinute) {
    bpm = beatsPerMinute;
    tempi.push_back({t, bpm});
    tempo.Tempo(t, int(std::lround(60e6 / (bpm * quartersPerBeat))));
  };
  setTempo(0, bpm);
  int base = 0;
  for (const auto& e : score.form) {
    const Section& s = score.sections.at(e.section);
    int bars = s.Bars();
    auto spans = Spans(s, b.bar, e.transpose);
    if (e.bpm > 0) setTempo(base, e.bpm);
    if (e.ritTo > 0) {
      int beat = score.meter.BeatTicks(), n = bars * b.bar / beat;
      double from = bpm;
      for (int k = 1; k < n; ++k) setTempo(base + k * beat, from + (e.ritTo - from) * k / (n - 1));
    }
    // Which voices play written parts in this pass.
    std::map<std::string, std::vector<std::string>> route;
    for (const auto& [part, bars] : s.parts) {
      auto r = e.route.find(part);
      route[part] = r != e.route.end() ? r->second : std::vector<std::string>{part};
    }
    std::set<std::string> writtenFor;
    for (const auto& [part, to] : route) writtenFor.insert(to.begin(), to.end());
    for (size_t v = 0; v < score.voices.size(); ++v) {
      const Voice& voice = score.voices[v];
      if (std::count(e.mute.begin(), e.mute.end(), voice.name)) continue;
      auto st = e.styles.find(voice.name);
      std::string style = st != e.styles.end() ? st->second : voice.style;
      if (voice.drums) b.Drums(v, style, bars, base, e.fill);
      else if (!style.empty() && !writtenFor.count(voice.name)) b.Pattern(v, style, spans, bars, base);
    }
    for (const auto& [part, to] : route)
      for (const auto& name : to) {
        auto it = std::find_if(score.voices.begin(), score.voices.end(), [&](const Voice& x) { return x.name == name; });
        if (std::count(e.mute.begin(), e.mute.end(), name)) continue;
        size_t v = size_t(it - score.voices.begin());
        const auto& partBars = s.parts.at(part);
        for (size_t k = 0; k < partBars.size(); ++k)
          for (const auto& n : partBars[k]) {
            int t = int(k) * b.bar + n.start;
            b.Add(v, base + t, int(n.dur * it->legato), n.pitch + e.transpose + 12 * e.octave,
                  it->velocity + b.Accent(t) + (n.dur >= kPpq ? 3 : 0));
          }
      }
    base += bars * b.bar;
  }
  Arrangement a;
  a.endTick = base;
  for (size_t i = 0; i < tempi.size(); ++i) {
    int until = i + 1 < tempi.size() ? tempi[i + 1].first : base;
    seconds += (until - tempi[i].first) / double(score.meter.BeatTicks()) * 60.0 / tempi[i].second;
  }
  a.seconds = seconds;
  a.tracks.push_back(tempo);
  for (size_t v = 0; v < score.voices.size(); ++v) {
    const Voice& voice = score.voices[v];
    MidiTrack t;
    t.Name(voice.name);
    int ch = voice.channel;
    t.Controller(ch, 121, 0);
    t.Controller(ch, 0, 0);
    t.Program(ch, voice.program);
    t.Controller(ch, 7, voice.volume);
    t.Controller(ch, 10, voice.pan);
    t.Controller(ch, 91, voice.reverb);
    t.Controller(ch, 93, voice.chorus);
    for (auto n : b.notes[v]) {
      int start = Swung(n.tick, score.meter.Compound() ? 0 : score.swing);
      int end = Swung(n.tick + n.dur, score.meter.Compound() ? 0 : score.swing);
      n.tick = start;
      n.dur = std::min(end, base) - start;
      t.Note(ch, n);
    }
    a.tracks.push_back(std::move(t));
  }
  return a;
}

}  // namespace music

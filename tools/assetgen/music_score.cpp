#include "tools/assetgen/music_score.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace music {
namespace {

struct Fault {
  std::string why;
};

std::vector<std::string> Words(const std::string& s) {
  std::istringstream in(s);
  std::vector<std::string> w;
  for (std::string t; in >> t;) w.push_back(t);
  return w;
}

int Int(const std::string& s) {
  char* end = nullptr;
  long v = std::strtol(s.c_str(), &end, 10);
  if (s.empty() || *end) throw Fault{"not a whole number: " + s};
  return int(v);
}

double Real(const std::string& s) {
  char* end = nullptr;
  double v = std::strtod(s.c_str(), &end);
  if (s.empty() || *end) throw Fault{"not a number: " + s};
  return v;
}

int LetterClass(char letter) {
  static const int pcs[] = {9, 11, 0, 2, 4, 5, 7};  // A..G
  return pcs[letter - 'A'];
}

// Reads "C", "F#", "Bb" at the front of s; returns the characters used, 0 if none.
size_t ReadPitchClass(const std::string& s, int& pc) {
  if (s.empty() || s[0] < 'A' || s[0] > 'G') return 0;
  pc = LetterClass(s[0]);
  if (s.size() > 1 && (s[1] == '#' || s[1] == 'b')) {
    pc = (pc + (s[1] == '#' ? 1 : 11)) % 12;
    return 2;
  }
  return 1;
}

// Ticks of "4", "8.", "12" (a note of that fraction of a whole, '.' dotted).
int DurationTicks(const std::string& d) {
  bool dotted = !d.empty() && d.back() == '.';
  int n = Int(dotted ? d.substr(0, d.size() - 1) : d);
  if (n <= 0 || (kPpq * 4) % n) throw Fault{"odd duration /" + d};
  int t = kPpq * 4 / n;
  if (dotted) {
    if (t % 2) throw Fault{"odd duration /" + d};
    t += t / 2;
  }
  return t;
}

int NoteNumber(const std::string& s) {  // "G3" -> 55
  int pc = 0;
  size_t n = ReadPitchClass(s, pc);
  if (!n || n + 1 != s.size() || !isdigit(s[n])) throw Fault{"not a note: " + s};
  return (s[n] - '0' + 1) * 12 + pc;
}

// Splits "| a b | c |" into bars; empty bars between bar lines are faults.
std::vector<std::string> SplitBars(const std::string& s) {
  std::vector<std::string> bars;
  std::string cur;
  for (char c : s + "|") {
    if (c != '|') { cur += c; continue; }
    if (Words(cur).empty()) { cur.clear(); continue; }
    bars.push_back(cur);
    cur.clear();
  }
  return bars;
}

// A written part while it is being read: the octave of a note without digit is
// the one nearest the previous note, and a duration holds until another is given.
struct PartReader {
  std::vector<Bar>* bars;
  int keyAcc[7];
  int barTicks;
  int prev = -1;
  int dur = kPpq;

  void ReadBar(const std::string& text) {
    auto words = Words(text);
    if (words.size() == 1 && words[0][0] == '@') {
      size_t n = size_t(Int(words[0].substr(1)));
      if (n < 1 || n > bars->size()) throw Fault{"no bar " + words[0] + " to repeat"};
      Bar copy = (*bars)[n - 1];
      for (auto& nt : copy) prev = nt.pitch;
      bars->push_back(copy);
      return;
    }
    Bar bar;
    int at = 0;
    bool lastWasNote = false;
    for (const auto& w : words) {
      size_t slash = w.find('/');
      std::string head = w.substr(0, slash);
      if (slash != std::string::npos) dur = DurationTicks(w.substr(slash + 1));
      if (head == "r") {
        lastWasNote = false;
      } else if (head == "-") {
        if (lastWasNote && !bar.empty()) bar.back().dur += dur;
      } else {
        bar.push_back({at, dur, Pitch(head)});
        lastWasNote = true;
      }
      at += dur;
    }
    if (at != barTicks)
      throw Fault{"bar holds " + std::to_string(at) + " ticks, not " + std::to_string(barTicks) + ": " + text};
    bars->push_back(bar);
  }

  int Pitch(const std::string& t) {
    if (t.empty() || t[0] < 'A' || t[0] > 'G') throw Fault{"not a note: " + t};
    int pc = LetterClass(t[0]);
    size_t i = 1;
    if (i < t.size() && (t[i] == '#' || t[i] == 'b' || t[i] == '=')) {
      pc += t[i] == '#' ? 1 : t[i] == 'b' ? -1 : 0;
      ++i;
    } else {
      pc += keyAcc[t[0] - 'A'];
    }
    int pitch;
    if (i < t.size()) {
      if (i + 1 != t.size() || !isdigit(t[i])) throw Fault{"not a note: " + t};
      pitch = (t[i] - '0' + 1) * 12 + pc;
    } else {
      if (prev < 0) throw Fault{"the first note of a part needs its octave: " + t};
      pc = ((pc % 12) + 12) % 12;
      pitch = prev - ((prev - pc) % 12 + 12) % 12;  // at or below prev
      if (prev - pitch > 6) pitch += 12;
    }
    prev = pitch;
    return pitch;
  }
};

std::vector<ChordSlot> ReadChordBar(const std::string& text, int barTicks) {
  auto words = Words(text);
  if (barTicks % int(words.size())) throw Fault{"bar cannot be split evenly: " + text};
  int each = barTicks / int(words.size());
  std::vector<ChordSlot> bar;
  for (size_t i = 0; i < words.size(); ++i) {
    ChordSlot slot{int(i) * each, each, {}, false};
    if (words[i] == ".") slot.hold = true;
    else if (words[i] != "-" && !ParseChord(words[i], slot.chord)) throw Fault{"not a chord: " + words[i]};
    bar.push_back(slot);
  }
  return bar;
}

FormEntry ReadFormEntry(const std::string& w) {
  FormEntry e;
  size_t open = w.find('[');
  e.section = w.substr(0, open);
  if (open == std::string::npos) return e;
  if (w.back() != ']') throw Fault{"unclosed [ in " + w};
  std::string mods = w.substr(open + 1, w.size() - open - 2);
  std::istringstream in(mods);
  for (std::string m; std::getline(in, m, ',');) {
    size_t gt = m.find('>'), eq = m.find('=');
    if (gt != std::string::npos) {
      std::istringstream vs(m.substr(gt + 1));
      for (std::string v; std::getline(vs, v, '+');) e.route[m.substr(0, gt)].push_back(v);
    } else if (m.rfind("tr", 0) == 0) {
      e.transpose = Int(m.substr(m[2] == '+' ? 3 : 2));
    } else if (m.rfind("oct", 0) == 0) {
      e.octave = Int(m.substr(m[3] == '+' ? 4 : 3));
    } else if (m.rfind("bpm=", 0) == 0) {
      e.bpm = Real(m.substr(4));
    } else if (m.rfind("rit=", 0) == 0) {
      e.ritTo = Real(m.substr(4));
    } else if (m == "nofill") {
      e.fill = false;
    } else if (!m.empty() && m[0] == '-') {
      e.mute.push_back(m.substr(1));
    } else if (eq != std::string::npos) {
      e.styles[m.substr(0, eq)] = m.substr(eq + 1);
    } else {
      throw Fault{"unknown change " + m};
    }
  }
  return e;
}

}  // namespace

int Section::Bars() const {
  size_t n = chords.size();
  for (const auto& [name, bars] : parts) n = std::max(n, bars.size());
  return int(n);
}

const Voice* Score::FindVoice(const std::string& name) const {
  for (const auto& v : voices)
    if (v.name == name) return &v;
  return nullptr;
}

bool ParseChord(const std::string& symbol, Chord& out) {
  static const std::map<std::string, std::vector<int>> qualities = {
      {"", {0, 4, 7}},          {"m", {0, 3, 7}},          {"7", {0, 4, 7, 10}},
      {"maj7", {0, 4, 7, 11}},  {"m7", {0, 3, 7, 10}},     {"dim", {0, 3, 6}},
      {"dim7", {0, 3, 6, 9}},   {"m7b5", {0, 3, 6, 10}},   {"aug", {0, 4, 8}},
      {"sus4", {0, 5, 7}},      {"sus2", {0, 2, 7}},       {"6", {0, 4, 7, 9}},
      {"m6", {0, 3, 7, 9}},     {"add9", {0, 4, 7, 14}},   {"madd9", {0, 3, 7, 14}},
      {"9", {0, 4, 7, 10, 14}}, {"m9", {0, 3, 7, 10, 14}}, {"maj9", {0, 4, 7, 11, 14}},
      {"7sus4", {0, 5, 7, 10}}, {"5", {0, 7}},             {"mmaj7", {0, 3, 7, 11}}};
  Chord c;
  size_t n = ReadPitchClass(symbol, c.root);
  if (!n) return false;
  std::string rest = symbol.substr(n);
  size_t slash = rest.find('/');
  if (slash != std::string::npos) {
    std::string b = rest.substr(slash + 1);
    if (ReadPitchClass(b, c.bass) != b.size() || b.empty()) return false;
    rest = rest.substr(0, slash);
  }
  auto q = qualities.find(rest);
  if (q == qualities.end()) return false;
  c.tones = q->second;
  out = c;
  return true;
}

Score ParseScore(const std::string& text, const std::string& where) {
  Score score;
  std::istringstream in(text);
  std::string line;
  int lineNo = 0;
  int keyAcc[7] = {};
  Section* section = nullptr;
  std::map<std::string, PartReader> readers;  // parts of the current section
  int nextChannel = 0;
  try {
    while (std::getline(in, line)) {
      ++lineNo;
      // '#' is also a sharp, so comments are whole '#' lines or follow a ';'.
      line = line.substr(0, line.find(';'));
      auto w = Words(line);
      if (w.empty() || w[0][0] == '#') continue;
      const std::string& k = w[0];
      std::string rest = line.substr(line.find(k) + k.size());
      if (k == "title") {
        score.title = rest.substr(rest.find_first_not_of(' '));
      } else if (k == "tempo" && w.size() == 2) {
        score.bpm = Real(w[1]);
      } else if (k == "meter" && w.size() == 2) {
        size_t s = w[1].find('/');
        if (s == std::string::npos) throw Fault{"meter is N/D"};
        score.meter = {Int(w[1].substr(0, s)), Int(w[1].substr(s + 1))};
      } else if (k == "key" && w.size() >= 2) {
        // "key 2#" or "key 3b": the key signature; the rest of the line is a remark.
        static const char sharps[] = "FCGDAEB", flats[] = "BEADGCF";
        int n = Int(w[1].substr(0, w[1].size() - 1));
        char sign = w[1].back();
        if ((sign != '#' && sign != 'b') || n < 0 || n > 7) throw Fault{"key is N# or Nb"};
        std::fill(keyAcc, keyAcc + 7, 0);
        for (int i = 0; i < n; ++i) keyAcc[(sign == '#' ? sharps : flats)[i] - 'A'] = sign == '#' ? 1 : -1;
      } else if (k == "swing" && w.size() == 2) {
        score.swing = Real(w[1]);
      } else if (k == "end" && w.size() == 2 && (w[1] == "loop" || w[1] == "cadence")) {
        score.loop = w[1] == "loop";
      } else if ((k == "voice" && w.size() >= 3) || (k == "drums" && w.size() >= 2)) {
        Voice v;
        size_t opt = 3;
        if (k == "drums") {
          v.name = "drums";
          v.drums = true;
          v.channel = 9;
          v.style = w[1];
          v.program = 0;
          v.velocity = 100;
          opt = 2;
        } else {
          v.name = w[1];
          v.program = Int(w[2]);
          if (nextChannel == 9) ++nextChannel;
          v.channel = nextChannel++;
        }
        if (score.FindVoice(v.name) || v.name == "chords") throw Fault{"voice named twice: " + v.name};
        if (v.channel > 15 || v.program < 0 || v.program > 127) throw Fault{"too many voices or bad program"};
        for (size_t i = opt; i < w.size(); ++i) {
          size_t eq = w[i].find('=');
          if (eq == std::string::npos) throw Fault{"expected key=value: " + w[i]};
          std::string key = w[i].substr(0, eq), val = w[i].substr(eq + 1);
          if (key == "vol") v.volume = Int(val);
          else if (key == "pan") v.pan = Int(val);
          else if (key == "rev") v.reverb = Int(val);
          else if (key == "cho") v.chorus = Int(val);
          else if (key == "vel") v.velocity = Int(val);
          else if (key == "style") v.style = val;
          else if (key == "low") v.low = NoteNumber(val);
          else if (key == "oct") v.octave = Int(val);
          else if (key == "len") v.legato = Real(val);
          else if (key == "kit") v.program = Int(val);
          else throw Fault{"unknown voice setting " + key};
        }
        score.voices.push_back(v);
      } else if (k == "section" && (w.size() == 2 || (w.size() == 4 && w[2] == ":"))) {
        if (score.sections.count(w[1])) throw Fault{"section named twice: " + w[1]};
        Section s;
        if (w.size() == 4) {
          if (!score.sections.count(w[3])) throw Fault{"no section " + w[3] + " to start from"};
          s = score.sections[w[3]];
        }
        s.name = w[1];
        section = &(score.sections[w[1]] = s);
        readers.clear();
      } else if (k == "form") {
        for (size_t i = 1; i < w.size(); ++i) score.form.push_back(ReadFormEntry(w[i]));
      } else if (k == "chords" || score.FindVoice(k)) {
        if (!section) throw Fault{k + " outside a section"};
        int barTicks = score.meter.BarTicks();
        if (k == "chords") {
          if (!readers.count(k)) section->chords.clear();
          readers[k];
          for (const auto& b : SplitBars(rest)) {
            if (Words(b).size() == 1 && b.find('@') != std::string::npos) {
              size_t n = size_t(Int(Words(b)[0].substr(1)));
              if (n < 1 || n > section->chords.size()) throw Fault{"no chord bar " + b};
              section->chords.push_back(section->chords[n - 1]);
            } else {
              section->chords.push_back(ReadChordBar(b, barTicks));
            }
          }
        } else {
          if (!readers.count(k)) {
            auto& bars = section->parts[k];
            bars.clear();
            PartReader r{&bars, {}, barTicks};
            std::copy(keyAcc, keyAcc + 7, r.keyAcc);
            readers.emplace(k, r);
          }
          for (const auto& b : SplitBars(rest)) readers.at(k).ReadBar(b);
        }
      } else {
        throw Fault{"cannot read: " + line};
      }
    }
    if (score.title.empty()) throw Fault{"no title"};
    if (score.form.empty()) throw Fault{"no form"};
    for (const auto& e : score.form) {
      if (!score.sections.count(e.section)) throw Fault{"form names no section " + e.section};
      const Section& s = score.sections.at(e.section);
      for (const auto& [part, bars] : s.parts)
        if (!s.chords.empty() && bars.size() > s.chords.size())
          throw Fault{"part " + part + " of " + s.name + " is longer than its chords"};
      for (const auto& [part, to] : e.route)
        for (const auto& v : to)
          if (!score.FindVoice(v)) throw Fault{"no voice " + v + " to play " + part};
    }
  } catch (const Fault& f) {
    throw std::runtime_error(where + ":" + std::to_string(lineNo) + ": " + f.why);
  }
  return score;
}

}  // namespace music

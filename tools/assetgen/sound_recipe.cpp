#include "tools/assetgen/sound_recipe.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tools/assetgen/sound_dsp.h"

namespace assetgen {
namespace {

const std::set<std::string> kKinds = {"sine", "square", "saw", "tri", "noise", "crackle"};
// t start, len, f frequency, sw sweep time, a attack, d decay constant, r release,
// g gain, lp/hp/bp filter cutoffs, q resonance, n repetitions spaced by step
// plus a random spread, fmul/gmul per-repetition factors, duty of square,
// vib/vibd vibrato rate and semitones, trem/tremd tremolo, fm/fmi modulator
// ratio and index, dens crackle impulses per second.
const std::set<std::string> kKeys = {"t",    "len",  "f",    "sw",   "a",   "d",     "r",  "g",
                                     "lp",   "hp",   "bp",   "q",    "n",   "step",  "spread",
                                     "fmul", "gmul", "duty", "vib",  "vibd", "trem", "tremd",
                                     "fm",   "fmi",  "dens"};

double ParseNumber(const std::string& s, const std::string& where) {
  size_t used = 0;
  double v = 0;
  try {
    v = std::stod(s, &used);
  } catch (...) {
    used = 0;
  }
  if (used != s.size() || s.empty()) throw std::runtime_error(where + ": bad number '" + s + "'");
  return v;
}

void ParseRange(const std::string& s, double& lo, double& hi, const std::string& where) {
  const size_t tilde = s.find('~');
  lo = ParseNumber(s.substr(0, tilde), where);
  hi = tilde == std::string::npos ? lo : ParseNumber(s.substr(tilde + 1), where);
}

SoundValue ParseValue(const std::string& s, const std::string& where) {
  SoundValue v;
  const size_t arrow = s.find('>');
  ParseRange(s.substr(0, arrow), v.lo, v.hi, where);
  if (arrow != std::string::npos) {
    v.sweep = true;
    ParseRange(s.substr(arrow + 1), v.endLo, v.endHi, where);
  }
  return v;
}

class Rng {
 public:
  explicit Rng(uint64_t seed) : s_(seed * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull) {}
  double Uniform() {  // [0, 1)
    s_ ^= s_ << 13;
    s_ ^= s_ >> 7;
    s_ ^= s_ << 17;
    return (s_ >> 11) * (1.0 / 9007199254740992.0);
  }

 private:
  uint64_t s_;
};

uint64_t Hash(const std::string& s) {
  uint64_t h = 1469598103934665603ull;
  for (unsigned char c : s) h = (h ^ c) * 1099511628211ull;
  return h;
}

// One repetition's drawn numbers: start and end of every parameter.
struct Drawn {
  std::map<std::string, std::pair<double, double>> v;
  double At(const std::string& k, double def) const {
    auto it = v.find(k);
    return it == v.end() ? def : it->second.first;
  }
  bool Has(const std::string& k) const { return v.count(k) != 0; }
  // Exponential glide from start to end over the sweep fraction x (0..1).
  double Glide(const std::string& k, double x) const {
    const auto& [a, b] = v.at(k);
    if (a == b) return a;
    if (a > 0 && b > 0) return a * std::pow(b / a, x);
    return a + (b - a) * x;
  }
};

Drawn Draw(const SoundLayer& l, Rng& rng) {
  Drawn d;
  for (const auto& [k, sv] : l.params) {
    const double u = rng.Uniform(), w = rng.Uniform();
    const double a = sv.lo + (sv.hi - sv.lo) * u;
    const double b = sv.sweep ? sv.endLo + (sv.endHi - sv.endLo) * w : a;
    d.v[k] = {a, b};
  }
  return d;
}

double Osc(const std::string& kind, double phase, double duty) {
  const double p = phase - std::floor(phase);
  if (kind == "sine") return std::sin(2 * M_PI * p);
  if (kind == "square") return p < duty ? 1.0 : -1.0;
  if (kind == "saw") return 2 * p - 1;
  return 1 - 4 * std::fabs(p - 0.5);  // tri
}

void RenderLayer(const SoundLayer& l, uint64_t seed, int rate, std::vector<float>& out) {
  Rng rng(seed);
  const int n = static_cast<int>(l.params.count("n") ? l.params.at("n").lo : 1);
  for (int rep = 0; rep < n; ++rep) {
    const Drawn d = Draw(l, rng);
    const double len = d.At("len", 0.1);
    const double start = d.At("t", 0) + rep * d.At("step", 0) + rng.Uniform() * d.At("spread", 0);
    const double fmul = std::pow(d.At("fmul", 1), rep), gain = d.At("g", 1) * std::pow(d.At("gmul", 1), rep);
    const double sw = d.At("sw", len), att = d.At("a", 0.001), dec = d.At("d", 0), rel = d.At("r", 0.004);
    const double q = d.At("q", 0.707), duty = d.At("duty", 0.5), dens = d.At("dens", 200);
    const double vib = d.At("vib", 0), vibd = d.At("vibd", 0), trem = d.At("trem", 0), tremd = d.At("tremd", 0);
    const double fm = d.At("fm", 0), fmi = d.At("fmi", 0);
    const bool noisy = l.kind == "noise" || l.kind == "crackle";
    Svf hp, lp, bp;
    double phase = 0, modPhase = 0;
    const long first = std::lround(start * rate);
    const long count = std::lround(len * rate);
    if (first + count > static_cast<long>(out.size())) out.resize(first + count, 0.0f);
    for (long k = 0; k < count; ++k) {
      const double tau = double(k) / rate;
      const double x = sw > 0 ? std::min(1.0, tau / sw) : 1.0;
      double y;
      if (l.kind == "noise") {
        y = rng.Uniform() * 2 - 1;
      } else if (l.kind == "crackle") {
        y = rng.Uniform() < dens / rate ? (rng.Uniform() * 2 - 1) * 4 : 0.0;
      } else {
        double f = (d.Has("f") ? d.Glide("f", x) : 440) * fmul;
        if (vib > 0) f *= std::pow(2.0, vibd / 12 * std::sin(2 * M_PI * vib * tau));
        double pm = 0;
        if (fm > 0) {
          modPhase += f * fm / rate;
          pm = fmi * std::sin(2 * M_PI * modPhase) / (2 * M_PI);
        }
        y = Osc(l.kind, phase + pm, duty);
        phase += f / rate;
      }
      if (d.Has("hp")) y = hp.Run(static_cast<float>(y), d.Glide("hp", x) * (noisy ? 1 : fmul), q, rate).hp;
      if (d.Has("lp")) y = lp.Run(static_cast<float>(y), d.Glide("lp", x) * (noisy ? 1 : fmul), q, rate).lp;
      if (d.Has("bp")) y = bp.Run(static_cast<float>(y), d.Glide("bp", x), q, rate).bp;
      double env = att > 0 ? std::min(1.0, (tau + 1.0 / rate) / att) : 1.0;
      if (dec > 0) env *= std::exp(-tau / dec);
      if (rel > 0) env *= std::min(1.0, (len - tau) / rel);
      if (trem > 0) env *= 1 - tremd * (0.5 - 0.5 * std::cos(2 * M_PI * trem * tau));
      out[first + k] += static_cast<float>(gain * env * y);
    }
  }
}

}  // namespace

std::map<std::string, SoundRecipe> ParseSoundRecipes(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::map<std::string, SoundRecipe> recipes;
  SoundRecipe* cur = nullptr;
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    const std::string where = path + ":" + std::to_string(n);
    if (const size_t hash = line.find('#'); hash != std::string::npos) line.resize(hash);
    std::istringstream s(line);
    std::string head;
    if (!(s >> head)) continue;
    const bool indented = line[0] == ' ' || line[0] == '\t';
    std::vector<std::pair<std::string, std::string>> kv;
    for (std::string w; s >> w;) {
      const size_t eq = w.find('=');
      if (eq == std::string::npos) throw std::runtime_error(where + ": expected key=value, got '" + w + "'");
      kv.push_back({w.substr(0, eq), w.substr(eq + 1)});
    }
    if (!indented) {
      if (recipes.count(head)) throw std::runtime_error(where + ": effect " + head + " defined twice");
      cur = &recipes[head];
      cur->name = head;
      for (const auto& [k, v] : kv) {
        if (k == "peak") cur->peak = ParseNumber(v, where);
        else if (k == "drive") cur->drive = ParseNumber(v, where);
        else if (k == "len") cur->len = ParseNumber(v, where);
        else throw std::runtime_error(where + ": unknown effect setting " + k);
      }
      continue;
    }
    if (!cur) throw std::runtime_error(where + ": layer before any effect");
    if (!kKinds.count(head)) throw std::runtime_error(where + ": unknown layer kind " + head);
    SoundLayer l;
    l.kind = head;
    l.source = where;
    for (const auto& [k, v] : kv) {
      if (!kKeys.count(k)) throw std::runtime_error(where + ": unknown layer key " + k);
      l.params[k] = ParseValue(v, where);
    }
    if (!l.params.count("len")) throw std::runtime_error(where + ": layer without len");
    cur->layers.push_back(std::move(l));
  }
  return recipes;
}

Pcm RenderSoundRecipe(const SoundRecipe& r, int rate) {
  Pcm p;
  p.rate = rate;
  for (size_t i = 0; i < r.layers.size(); ++i) RenderLayer(r.layers[i], Hash(r.name) + i * 7919, rate, p.s);
  if (r.len > 0) p.s.resize(static_cast<size_t>(r.len * rate), 0.0f);
  BlockDc(p);
  if (r.drive > 0) {
    const float pk = Peak(p);
    if (pk > 0)
      for (float& x : p.s) x = static_cast<float>(std::tanh(r.drive * x / pk) / std::tanh(r.drive));
  }
  Fade(p, 0, 0.004);
  const float pk = Peak(p);
  if (pk > 0) Scale(p, r.peak / pk);
  return p;
}

}  // namespace assetgen

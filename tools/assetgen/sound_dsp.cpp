#include "tools/assetgen/sound_dsp.h"

#include <algorithm>

namespace assetgen {

float Peak(const Pcm& p) {
  float m = 0;
  for (float x : p.s) m = std::max(m, std::fabs(x));
  return m;
}

double Rms(const Pcm& p) {
  if (p.s.empty()) return 0;
  double e = 0;
  for (float x : p.s) e += double(x) * x;
  return std::sqrt(e / p.s.size());
}

double ActiveRms(const Pcm& p) {
  const size_t w = std::max<size_t>(1, p.rate / 50);
  std::vector<double> energy;
  for (size_t at = 0; at + w <= p.s.size(); at += w) {
    double e = 0;
    for (size_t i = at; i < at + w; ++i) e += double(p.s[i]) * p.s[i];
    energy.push_back(e / w);
  }
  if (energy.empty()) return Rms(p);
  const double gate = *std::max_element(energy.begin(), energy.end()) * 1e-3;
  double sum = 0;
  int n = 0;
  for (double e : energy)
    if (e >= gate) { sum += e; ++n; }
  return std::sqrt(sum / n);
}

void Trim(Pcm& p, float threshold, double padAfter) {
  const float t = threshold;
  size_t first = p.s.size(), last = 0;
  for (size_t i = 0; i < p.s.size(); ++i)
    if (std::fabs(p.s[i]) > t) {
      first = std::min(first, i);
      last = i;
    }
  if (first >= p.s.size()) { p.s.clear(); return; }
  const size_t end = std::min(p.s.size(), last + 1 + static_cast<size_t>(padAfter * p.rate));
  p.s = std::vector<float>(p.s.begin() + first, p.s.begin() + end);
}

void Fade(Pcm& p, double in, double out) {
  const size_t n = p.s.size();
  const size_t a = std::min(n, static_cast<size_t>(in * p.rate));
  const size_t b = std::min(n, static_cast<size_t>(out * p.rate));
  for (size_t i = 0; i < a; ++i) p.s[i] *= float(i + 1) / (a + 1);
  for (size_t i = 0; i < b; ++i) p.s[n - 1 - i] *= float(i) / b;
}

void Scale(Pcm& p, double gain) {
  for (float& x : p.s) x = static_cast<float>(x * gain);
}

void BlockDc(Pcm& p) {
  const double r = 1.0 - 2 * M_PI * 15.0 / p.rate;
  double px = 0, py = 0;
  for (float& x : p.s) {
    const double y = x - px + r * py;
    px = x;
    py = y;
    x = static_cast<float>(y);
  }
}

Pcm Resample(const Pcm& p, int rate) {
  Pcm out;
  out.rate = rate;
  if (p.rate == rate || p.s.empty()) { out.s = p.s; return out; }
  const double ratio = double(rate) / p.rate;
  const double cutoff = std::min(1.0, ratio) * 0.95;  // of the source Nyquist
  const int half = 16;                                 // taps each side, in source samples
  const double span = half / cutoff;
  const size_t n = static_cast<size_t>(p.s.size() * ratio);
  out.s.resize(n);
  for (size_t j = 0; j < n; ++j) {
    const double c = j / ratio;
    const long lo = static_cast<long>(std::ceil(c - span)), hi = static_cast<long>(std::floor(c + span));
    double acc = 0;
    for (long i = std::max(0L, lo); i <= std::min<long>(hi, p.s.size() - 1); ++i) {
      const double d = i - c;
      const double x = d * cutoff;
      const double sinc = std::fabs(x) < 1e-9 ? 1.0 : std::sin(M_PI * x) / (M_PI * x);
      const double win = 0.5 + 0.5 * std::cos(M_PI * d / span);
      acc += p.s[i] * cutoff * sinc * win;
    }
    out.s[j] = static_cast<float>(acc);
  }
  return out;
}

}  // namespace assetgen

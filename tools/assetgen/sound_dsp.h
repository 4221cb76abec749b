// Small signal-processing helpers shared by the effects and the voices.
#pragma once
#include <cmath>

#include "tools/assetgen/sound_wav.h"

namespace assetgen {

// Topology-preserving state-variable filter: stable for any cutoff below
// Nyquist, so cutoffs may sweep freely from sample to sample.
class Svf {
 public:
  struct Out { float lp, bp, hp; };
  Out Run(float x, double cutoff, double q, int rate) {
    const double fc = std::fmin(cutoff, rate * 0.45);
    const double g = std::tan(M_PI * fc / rate);
    const double k = 1.0 / q;
    const double hp = (x - (k + g) * s1_ - s2_) / (1.0 + g * (k + g));
    const double bp = g * hp + s1_;
    const double lp = g * bp + s2_;
    s1_ = g * hp + bp;
    s2_ = g * bp + lp;
    return {static_cast<float>(lp), static_cast<float>(bp), static_cast<float>(hp)};
  }

 private:
  double s1_ = 0, s2_ = 0;
};

float Peak(const Pcm& p);
double Rms(const Pcm& p);
// RMS over the 20 ms windows within 30 dB of the loudest one: the level a
// listener hears, not lowered by the gaps between words.
double ActiveRms(const Pcm& p);

// Cuts everything before the first and after the last sample louder than
// threshold, keeping pad seconds of lead-out.
void Trim(Pcm& p, float threshold, double padAfter);
// Linear fades at either end.
void Fade(Pcm& p, double in, double out);
void Scale(Pcm& p, double gain);
// Removes DC (first-order high-pass near 15 Hz).
void BlockDc(Pcm& p);
// Band-limited resampling (windowed sinc).
Pcm Resample(const Pcm& p, int rate);

}  // namespace assetgen

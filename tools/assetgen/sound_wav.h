// Mono sample buffers and the 16-bit PCM WAV files the game plays.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace assetgen {

// Every sound of the game is written at this rate: enough for short effects
// and speech, and the mixer resamples anything else anyway.
constexpr int kSoundRate = 22050;

struct Pcm {
  int rate = kSoundRate;
  std::vector<float> s;  // -1..1
  double Seconds() const { return rate ? static_cast<double>(s.size()) / rate : 0.0; }
};

// 16-bit mono RIFF WAVE; rounds and clamps. Writes a temporary file and
// renames it, so a stopped run never leaves half a sound. Throws on failure.
void WriteWav(const std::string& path, const Pcm& pcm);

// The header of any PCM WAV file (for listings and checks).
struct WavInfo {
  int rate = 0;
  int channels = 0;
  int bits = 0;
  int64_t frames = 0;
  double Seconds() const { return rate ? static_cast<double>(frames) / rate : 0.0; }
};
bool ReadWavInfo(const std::string& path, WavInfo& out, std::string& error);

}  // namespace assetgen

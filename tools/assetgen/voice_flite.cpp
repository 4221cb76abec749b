// Spoken samples: flite reads the phrases of assets/sounds/voices.tsv, then
// each take is trimmed, resampled and levelled so that all voices sound
// equally loud. Manifest args: TABLE-INDEX PHRASE-ID.
#include <flite/flite.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <stdexcept>

#include "tools/assetgen/registry.h"
#include "tools/assetgen/sound_dsp.h"
#include "tools/assetgen/sound_wav.h"

extern "C" {
cst_voice* register_cmu_us_rms(const char* voxdir);
cst_voice* register_cmu_us_awb(const char* voxdir);
cst_voice* register_cmu_us_slt(const char* voxdir);
cst_voice* register_cmu_us_kal16(const char* voxdir);
}

namespace {

// Loudness every take is brought to (active RMS), and the ceiling its peaks
// are softly held under.
constexpr double kVoiceRms = 0.16;
constexpr double kVoiceCeiling = 0.92;

struct Phrase {
  std::string voice;
  double stretch = 1.0;  // flite's duration_stretch: > 1 slower
  double pitch = 0;      // mean f0 in Hz, 0 = the voice's own
  std::string text;
};

std::map<std::string, Phrase> ReadPhrases(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::map<std::string, Phrase> table;
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream s(line);
    std::string id, pitch;
    Phrase p;
    if (!(s >> id >> p.voice >> p.stretch >> pitch) || !std::getline(s >> std::ws, p.text) || p.text.empty())
      throw std::runtime_error(path + ":" + std::to_string(n) + ": expected ID VOICE STRETCH PITCH TEXT");
    p.pitch = pitch == "-" ? 0 : std::stod(pitch);
    if (!table.emplace(id, p).second) throw std::runtime_error(path + ":" + std::to_string(n) + ": " + id + " twice");
  }
  return table;
}

std::mutex gFlite;  // flite keeps global state; one take at a time

cst_voice* Voice(const std::string& name) {
  static bool ready = false;
  static std::map<std::string, cst_voice*> voices;
  if (!ready) {
    flite_init();
    voices["rms"] = register_cmu_us_rms(nullptr);
    voices["awb"] = register_cmu_us_awb(nullptr);
    voices["slt"] = register_cmu_us_slt(nullptr);
    voices["kal16"] = register_cmu_us_kal16(nullptr);
    ready = true;
  }
  auto it = voices.find(name);
  return it == voices.end() ? nullptr : it->second;
}

assetgen::Pcm Speak(const Phrase& p, const assetgen::Entry& entry) {
  std::lock_guard<std::mutex> lock(gFlite);
  cst_voice* v = Voice(p.voice);
  if (!v) assetgen::Fail(entry, "no flite voice " + p.voice);
  // Settings live on the shared voice: set every one on every take.
  feat_set_float(v->features, "duration_stretch", static_cast<float>(p.stretch));
  if (p.pitch > 0) feat_set_float(v->features, "int_f0_target_mean", static_cast<float>(p.pitch));
  else feat_remove(v->features, "int_f0_target_mean");
  // flite voices unvoiced sounds with rand(): reseed so that a take depends on
  // its own phrase only, not on which takes came before it.
  std::srand(1);
  cst_wave* w = flite_text_to_wave(p.text.c_str(), v);
  if (!w || w->num_samples <= 0) assetgen::Fail(entry, "flite produced nothing");
  assetgen::Pcm pcm;
  pcm.rate = w->sample_rate;
  pcm.s.resize(w->num_samples);
  for (int i = 0; i < w->num_samples; ++i) pcm.s[i] = w->samples[i * w->num_channels] / 32768.0f;
  delete_wave(w);
  return pcm;
}

// Gentle tanh knee above 0.7 of the ceiling: only the odd plosive is touched.
void HoldUnderCeiling(assetgen::Pcm& p) {
  const double knee = 0.7 * kVoiceCeiling, room = kVoiceCeiling - knee;
  for (float& x : p.s) {
    const double a = std::fabs(x);
    if (a > knee) x = static_cast<float>(std::copysign(knee + room * std::tanh((a - knee) / room), x));
  }
}

}  // namespace

ASSETGEN_GENERATOR(voice) {
  if (entry.kind != "wav" || entry.args.size() != 2) assetgen::Fail(entry, "expected: wav ... voice INDEX PHRASE");
  static std::map<std::string, Phrase> phrases = ReadPhrases(ctx.assetsDir + "/sounds/voices.tsv");
  auto it = phrases.find(entry.args[1]);
  if (it == phrases.end()) assetgen::Fail(entry, "no phrase named " + entry.args[1]);

  assetgen::Pcm pcm = assetgen::Resample(Speak(it->second, entry), assetgen::kSoundRate);
  assetgen::BlockDc(pcm);
  assetgen::Scale(pcm, kVoiceRms / assetgen::ActiveRms(pcm));
  // flite pads every utterance with a pause: cut it so the word comes at once.
  // Trimmed after levelling, so the cut is at one loudness (about -38 dBFS) for all.
  assetgen::Trim(pcm, 0.012f, 0.04);
  if (pcm.s.size() < 100) assetgen::Fail(entry, "take is silent");
  // No fade-in: the cut is that quiet already, and a fade would swallow a
  // plosive's burst.
  assetgen::Fade(pcm, 0, 0.03);
  HoldUnderCeiling(pcm);
  assetgen::WriteWav(ctx.Out(entry.path), pcm);
}

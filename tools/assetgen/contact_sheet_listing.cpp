#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tools/assetgen/contact_sheet.h"
#include "tools/assetgen/contact_sheet_midi.h"
#include "tools/assetgen/sound_wav.h"

namespace assetgen {
namespace {

std::string Format(const char* fmt, double a) {
  char buf[64];
  std::snprintf(buf, sizeof buf, fmt, a);
  return buf;
}

std::string Pad(std::string s, size_t width) {
  if (s.size() < width) s.append(width - s.size(), ' ');
  return s;
}

}  // namespace

void WriteSoundListing(const std::string& outDir, const std::vector<Entry>& entries) {
  std::string text = "# Every sound and music track of the data folder: PATH  SECONDS  FORMAT\n";
  double soundTotal = 0, musicTotal = 0;
  int sounds = 0, tracks = 0, pictures = 0, broken = 0;
  for (const Entry& e : entries) {
    const std::string path = outDir + "/" + e.path;
    std::string line = Pad(e.path, 40) + "  ";
    std::string err;
    if (e.kind == "wav") {
      WavInfo w;
      ++sounds;
      if (ReadWavInfo(path, w, err)) {
        soundTotal += w.Seconds();
        line += Format("%8.3f s", w.Seconds()) + "  " + std::to_string(w.rate) + " Hz " +
                std::to_string(w.bits) + "-bit " + (w.channels == 1 ? "mono" : std::to_string(w.channels) + " ch");
      } else {
        line += "BROKEN: " + err;
        ++broken;
      }
    } else if (e.kind == "mid") {
      MidiSummary m;
      ++tracks;
      if (SummariseMidiFile(path, m, err)) {
        musicTotal += m.seconds;
        line += Format("%8.3f s", m.seconds) + "  format " + std::to_string(m.format) + ", " +
                std::to_string(m.tracks) + " tracks, " + std::to_string(m.endTick) + " ticks, " +
                std::to_string(m.tempoChanges) + " tempo events";
      } else {
        line += "BROKEN: " + err;
        ++broken;
      }
    } else {
      if (e.kind == "bmp") ++pictures;
      continue;
    }
    text += line + "\n";
  }
  text += "# " + std::to_string(sounds) + " sounds, " + Format("%.1f", soundTotal) + " s; " +
          std::to_string(tracks) + " tracks, " + Format("%.1f", musicTotal) + " s; " + std::to_string(pictures) +
          " pictures on the contact sheet";
  text += broken ? "; " + std::to_string(broken) + " BROKEN\n" : "\n";

  const std::string out = outDir + "/contact-sheet.txt", tmp = out + ".tmp";
  {
    std::ofstream f(tmp, std::ios::trunc);
    f << text;
    if (!f) throw std::runtime_error("cannot write " + tmp);
  }
  std::filesystem::rename(tmp, out);
}

}  // namespace assetgen

namespace {

void MakeContactSheet(const assetgen::Context& ctx, const assetgen::Entry&) {
  const auto entries = assetgen::ReadManifest(ctx.assetsDir + "/files");
  assetgen::WriteContactPages(ctx.outDir, entries);
  assetgen::WriteSoundListing(ctx.outDir, entries);
}

assetgen::Register reg("@after", MakeContactSheet);

}  // namespace

// The dump: the run's counters, every exposed variable, the field and the logs.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "display/surface.h"
#include "core/key_names.h"
#include "automation/internal.h"
#include "core/json_writer.h"
#include "core/variables.h"
#include "platform/clock.h"

namespace automation {
namespace {

std::string Frame() { return std::to_string(State().frames); }

void WriteKeyList(core::JsonWriter& out, vars::Ref table) {
  out.BeginArray();
  for (long long k = table.Low(); k <= table.High(); ++k) {
    if (table.Element(k).AsInteger() == 0) continue;
    const char* name = core::KeyName(static_cast<int>(k));
    out.String(name ? std::string(name) : "Key" + std::to_string(k));
  }
  out.EndArray();
}

void WriteField(core::JsonWriter& out) {
  const display::Surface* field = display::FindSurface("FieldSurfaces[0]");
  if (!field || field->Width < 260 || field->Height < 420) return;
  out.Key("field");
  out.BeginArray();
  for (int r = 0; r < 21; ++r) {
    std::string row(13, '.');
    for (int c = 0; c < 13; ++c) {
      if (field->Row(20 * r + 10)[20 * c + 10] != 0) row[c] = '#';
    }
    out.String(row);
  }
  out.EndArray();
}

void WriteLog(core::JsonWriter& out, const char* name, const std::vector<std::string>& entries) {
  out.Key(name);
  out.BeginArray();
  for (const std::string& entry : entries) out.Raw(entry);
  out.EndArray();
}

std::string Entry(std::initializer_list<std::string> parts) {
  std::string s = "[";
  for (const std::string& p : parts) s += (s.size() > 1 ? "," : "") + p;
  return s + "]";
}

std::string Bool(bool v) { return v ? "true" : "false"; }

void Log(std::vector<std::string> Logs::*log, std::string entry) {
  Engine& e = State();
  if (e.keepLogs) (e.logs.*log).push_back(std::move(entry));
}

}  // namespace

std::string DumpText() {
  const Engine& e = State();
  core::JsonWriter out;
  out.BeginObject();
  out.Key("frame");
  out.Int(static_cast<long long>(e.frames));
  out.Key("tick");
  out.Int(platform::TickMs());
  out.Key("screen");
  // A screen is named by its frames: before the first one there is none.
  out.String(e.frames == 0 ? std::string("none") : e.screen);
  for (const auto& [name, ref] : vars::All()) {
    out.Key(name);
    if (name == "KeyTable" && ref.GetKind() == vars::Kind::Array) {
      WriteKeyList(out, ref);
    } else {
      vars::WriteJson(out, ref);
    }
  }
  WriteField(out);
  WriteLog(out, "sounds", e.logs.sounds);
  WriteLog(out, "music", e.logs.music);
  WriteLog(out, "draws", e.logs.draws);
  WriteLog(out, "screens", e.logs.screens);
  WriteLog(out, "files", e.logs.files);
  WriteLog(out, "messages", e.logs.messages);
  WriteLog(out, "beeps", e.logs.beeps);
  out.EndObject();
  return out.Text();
}

bool WriteDump(const std::string& path, std::string& error) { return WriteFileAtomically(path, DumpText(), error); }

bool WriteFileAtomically(const std::string& path, const std::string& data, std::string& error) {
  std::string temp = path + ".tmp" + std::to_string(getpid());
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out) {
      error = "cannot write " + path;
      return false;
    }
    out << data;
    out.flush();
    if (!out) {
      error = "cannot write " + path + " (disk full?)";
      out.close();
      std::remove(temp.c_str());
      return false;
    }
  }
  std::error_code ec;
  std::filesystem::rename(temp, path, ec);
  if (ec) {
    error = "cannot write " + path + ": " + ec.message();
    std::remove(temp.c_str());
    return false;
  }
  return true;
}

void NoteSound(int index, bool played) {
  Log(&Logs::sounds, Entry({Frame(), std::to_string(index), Bool(played)}));
  SoundCalled(index);
  if (TheDriver().Sound) TheDriver().Sound(index);
}

void NoteSoundStop(int index) { Log(&Logs::sounds, Entry({Frame(), std::to_string(index), "\"stop\""})); }

void NoteMusicPlay(const std::string& title, bool loop) {
  Log(&Logs::music, Entry({Frame(), "\"PlayMidi\"", core::JsonQuote(title), Bool(loop)}));
  MusicCalled(title);
}

void NoteMusicStop() { Log(&Logs::music, Entry({Frame(), "\"StopMidi\""})); }

void NoteMusicTempo(int percent) {
  Log(&Logs::music, Entry({Frame(), "\"SetMusicTempo\"", std::to_string(percent)}));
}

void NoteDraw(int nextKind, int nextFuse, int chargeCount, bool forced) {
  Log(&Logs::draws, Entry(
      {Frame(), std::to_string(nextKind), std::to_string(nextFuse), std::to_string(chargeCount), Bool(forced)}));
  if (TheDriver().Draw) TheDriver().Draw();
}

void NoteFile(bool write, const std::string& name) {
  Log(&Logs::files, Entry({Frame(), write ? "\"write\"" : "\"read\"", core::JsonQuote(name)}));
}

void NoteMessage(const std::string& title, const std::string& text) {
  Log(&Logs::messages, Entry({Frame(), core::JsonQuote(title), core::JsonQuote(text)}));
}

void NoteBeep() { Log(&Logs::beeps, Entry({Frame(), std::to_string(platform::TickMs())})); }

}  // namespace automation

// Music: one MIDI piece at a time from the track table, optionally looping,
// with a master volume from the settings store and a master tempo the game
// raises while the danger zone is active.
#pragma once
#include <cstdint>
#include <string>

#include "core/table.h"

namespace audio {

// Titles are also the files' base names: music\<title>.mid.
extern core::Table<std::string, 0, 50> TrackTitles;
// Hundredths of a decibel, read once by InitAudio (default 500, +5 dB).
extern int32_t MusicVolume;
// The file PlayMusic chose last, as the game names it below the data folder
// ("\music\Intro.mid").
extern std::string MusicPath;
// The title of the piece PlayMidi loaded last ("" before the first).
extern std::string MusicSegment;
// The master tempo in percent (100 normal speed).
extern int16_t MusicTempo;

void FillTrackTable();
// Checks the file of every title as PlayMidi would read it: a missing or
// damaged one throws core::GameFault naming it.
void CheckMusicFiles();

// Reads MusicVolume and opens the music device (after the sound device).
void InitAudio();
// fileName is a full path. A looped piece plays 101 times in a row.
void PlayMidi(const std::string& fileName, bool loop);
void StopMidi();
// Takes effect at once, on the playing piece and on the ones after it.
void SetMusicTempo(int16_t percent);
// Stops the music and closes the music device and the sound mixer.
void ShutdownAudio();

// Stops the music; with MusicOn set plays TrackTitles(track). Track 0 picks
// one of 1..30 at random and leaves it in the caller's variable.
void PlayMusic(int16_t& track, bool loop);
void StopMusic();

// The synthesiser gain for a master volume in hundredths of a decibel.
double MusicGain(int32_t volume);
// The settings store's text as the master volume: absent is 500, otherwise
// its numeric prefix rounded (none: 0).
int32_t MusicVolumeFromText(const std::string* text);

}  // namespace audio

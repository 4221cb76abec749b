// Pacing of the game clock to real time, kept apart from the clock that
// measures real time so it can be checked without waiting.
#pragma once

namespace platform {

class Pacer {
 public:
  // Beyond this the two clocks are taken to have parted (the process was
  // stopped, a long load ran, the machine slept): pacing starts afresh from
  // here instead of rushing or stalling to make up the difference.
  static constexpr double kMaxDriftMs = 250.0;

  // Milliseconds to wait from realMs until the game clock's moment clockMs
  // is due (0 when it is due already).
  double WaitFor(double clockMs, double realMs) {
    double due = clockMs + offsetMs_;
    if (realMs - due > kMaxDriftMs || due - realMs > kMaxDriftMs) {
      offsetMs_ = realMs - clockMs;
      due = realMs;
    }
    return due > realMs ? due - realMs : 0.0;
  }

 private:
  double offsetMs_ = 0.0;  // real time of the game clock's moment 0
};

}  // namespace platform

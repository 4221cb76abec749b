#include "frontend/front_state.h"

#include "core/variables.h"

namespace frontend {

FrontState Front;

void ExposeFrontState() {
  FrontState& f = Front;
  vars::Expose("MenuPage", f.MenuPage);
  vars::Expose("StartRequest", f.StartRequest);
  vars::Expose("SparkSlot", f.SparkSlot);
  vars::Expose("ClassicPulse", f.ClassicPulse);
  vars::Expose("BonusPulse", f.BonusPulse);
  vars::Expose("WickoryPulse", f.WickoryPulse);
  vars::Expose("TypeAPulse", f.TypeAPulse);
  vars::Expose("TypeBPulse", f.TypeBPulse);
  vars::Expose("TypeCPulse", f.TypeCPulse);
  vars::Expose("StartPulse", f.StartPulse);
  vars::Expose("HighScores", f.HighScores);
  vars::Expose("EntryName", f.EntryName);
  vars::Expose("CreditsText", f.CreditsText);
  display::NameSurface(f.RocketImage, "RocketImage");
  display::NameSurface(f.RocketFire[0], "RocketFire[0]");
  display::NameSurface(f.RocketFire[1], "RocketFire[1]");
}

}  // namespace frontend

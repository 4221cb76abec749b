#include "fuse/fuse_state.h"

#include "core/variables.h"

namespace fuse {

FuseState Fuse;

void ExposeFuseState() {
  FuseState& f = Fuse;
  f.ChargePos.name = "ChargePos";
  f.FireHeads.name = "FireHeads";
  f.LitPos.name = "LitPos";
  f.BurntPos.name = "BurntPos";
  f.ChargeSpent.name = "ChargeSpent";
  vars::Expose("ChargeCount", f.ChargeCount);
  vars::Expose("ChargePos", f.ChargePos);
  vars::Expose("ChargePhase", f.ChargePhase);
  vars::Expose("BurnFlag", f.BurnFlag);
  vars::Expose("FuseColour1", f.FuseColour1);
  vars::Expose("FuseColour2", f.FuseColour2);
  vars::Expose("ChargeColour1", f.ChargeColour1);
  vars::Expose("ChargeColour2", f.ChargeColour2);
  vars::Expose("FireHeads", f.FireHeads);
  vars::Expose("FireHeadCount", f.FireHeadCount);
  vars::Expose("CellValue", f.CellValue);
  vars::Expose("BurntCells", f.BurntCells);
  vars::Expose("LinesBefore", f.LinesBefore);
  vars::Expose("RingRadius", f.RingRadius);
  vars::Expose("LitCount", f.LitCount);
  vars::Expose("LitPos", f.LitPos);
  vars::Expose("BurntCount", f.BurntCount);
  vars::Expose("BurntPos", f.BurntPos);
  vars::Expose("FrameDivider", f.FrameDivider);
  vars::Expose("ChargeSpent", f.ChargeSpent);
}

}  // namespace fuse

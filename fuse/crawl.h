// The fire's crawl along the fuse pixels, on its own so that the tests and
// the benchmark can drive it sweep by sweep.
#pragma once

namespace fuse {

// Samples the reference colours, puts the four heads on the sides of the
// detonator's cell and readies the per-detonation counters.
void StartCrawl();
// One sweep over the heads. Returns false when no head is left.
bool Sweep();
// One shown frame of a detonation: the fuse field, the detonator and the
// flash rings around it; presents.
void ShowDetonationFrame(bool present = true);

}  // namespace fuse

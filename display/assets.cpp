#include "display/assets.h"

namespace display {

AssetSurfaces Assets;

}  // namespace display

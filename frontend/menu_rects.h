// The menu's click rectangles; the hover effects use the same ones.
#pragma once
#include "frontend/menu.h"

namespace frontend {

inline constexpr HitRect kOptionsTab{449, 491, 9, 51};
inline constexpr HitRect kHighTab{499, 541, 9, 51};
inline constexpr HitRect kHelpTab{549, 591, 9, 51};
inline constexpr HitRect kExitTab{724, 766, 9, 51};
// Classic reaches down to row 175, into Bonus and Wickory.
inline constexpr HitRect kClassicRect{546, 678, 129, 176};
inline constexpr HitRect kBonusRect{469, 601, 174, 221};
inline constexpr HitRect kWickoryRect{623, 755, 174, 221};
inline constexpr HitRect kTypeARect{509, 561, 229, 281};
inline constexpr HitRect kTypeBRect{586, 638, 229, 281};
inline constexpr HitRect kTypeCRect{663, 715, 229, 281};
inline constexpr HitRect kLevelSlider{487, 737, 302, 322};
inline constexpr HitRect kHeightSlider{487, 737, 340, 360};
inline constexpr HitRect kEasyRect{487, 568, 325, 353, true};
inline constexpr HitRect kMediumRect{572, 653, 325, 353, true};
inline constexpr HitRect kHardRect{657, 738, 325, 353, true};
inline constexpr HitRect kTransparencySlider{487, 737, 378, 398};
inline constexpr HitRect kMusicBox{486, 506, 406, 421};
inline constexpr HitRect kSoundBox{486, 506, 426, 441};
inline constexpr HitRect kVoiceBox{486, 506, 446, 461};
inline constexpr HitRect kTrackDown{569, 586, 404, 421};
inline constexpr HitRect kTrackUp{721, 738, 404, 421};
inline constexpr HitRect kStartRect{631, 743, 474, 513};

}  // namespace frontend

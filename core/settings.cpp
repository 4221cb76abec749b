#include "core/settings.h"

namespace core {

MenuSettings Settings;

}  // namespace core

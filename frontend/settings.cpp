#include "frontend/settings.h"

namespace frontend {

MenuSettings Settings;

}  // namespace frontend

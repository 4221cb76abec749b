#include "core/run_state.h"

namespace core {

RunState Run;

}  // namespace core

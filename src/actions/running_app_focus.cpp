#include "actions/running_app_focus.h"

namespace rondora {

bool RunningAppFocus::focus(const RunningApplication& application) { return workspace_.activate(application); }

}  // namespace rondora

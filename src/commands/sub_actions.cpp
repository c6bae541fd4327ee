#include "commands/sub_actions.h"

#include <utility>

namespace rondora {

void NoSubActions::resolve(const RunningApplication&, Completion completion) {
  mainQueue_.async([completion = std::move(completion)] { completion({}); });
}

}  // namespace rondora

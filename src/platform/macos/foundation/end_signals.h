#pragma once

#include <dispatch/dispatch.h>

#include <functional>
#include <vector>

namespace rondora::macos {

/// Takes over the signals that end a program: they call back on the main queue instead. A signal that the process
/// inherited as ignored stays ignored.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> ended);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  std::function<void()> ended_;
  std::vector<dispatch_source_t> sources_;
};

}  // namespace rondora::macos

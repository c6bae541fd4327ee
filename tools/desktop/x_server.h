#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desktop/child_process.h"

namespace rondora::live {

/// A private X server in memory; it picks a free display number itself.
class XServer {
 public:
  /// Returns when the server accepts clients; throws std::runtime_error when it does not come up.
  /// `screen` is width x height x depth; `extraArguments` go to the server.
  explicit XServer(const std::string& screen = "1280x800x24", const std::vector<std::string>& extraArguments = {});

  /// As in the DISPLAY variable.
  const std::string& display() const { return display_; }
  /// Kills the server, as if it had crashed.
  void terminate() { process_->terminate(); }

 private:
  std::optional<ChildProcess> process_;
  std::string display_;
};

}  // namespace rondora::live

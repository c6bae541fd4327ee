#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "commands/window_ax.h"
#include "model/pie_sub_action.h"

namespace rondora {

/// What an application offered when it was last read, as far as it is known. Plain values that pass between threads.
struct ApplicationSnapshot {
  struct Window {
    bool canMoveAndResize = false;
    FullScreenState fullScreen = FullScreenState::unsupported;
    friend bool operator==(const Window&, const Window&) = default;
  };

  enum class Availability { enabled, disabled, missing };

  /// A menu command of the document.
  struct Command {
    std::vector<std::string> path;
    Availability availability = Availability::enabled;
    /// Its key equivalent now.
    std::optional<MenuShortcut> shortcut;
    friend bool operator==(const Command&, const Command&) = default;
  };

  bool isWindowRead = false;
  /// The window that commands act on; nothing when there is none.
  std::optional<Window> window;
  bool areMenusRead = false;
  /// Those of which something is known.
  std::vector<Command> commands;
  friend bool operator==(const ApplicationSnapshot&, const ApplicationSnapshot&) = default;

  /// Null when nothing is known of it.
  const Command* command(const std::vector<std::string>& path) const;
  /// Roughly, what the snapshot takes in memory.
  std::size_t byteCount() const;
};

}  // namespace rondora

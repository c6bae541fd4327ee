#pragma once

#include <cstddef>
#include <map>
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
    bool canMinimize = false;
    FullScreenState fullScreen = FullScreenState::unsupported;
    friend bool operator==(const Window&, const Window&) = default;
  };

  enum class Availability {
    unknown,  // the application did not tell
    enabled,
    disabled,
    missing,
  };

  /// A menu command of the document.
  struct Command {
    Availability availability = Availability::unknown;
    /// Its key equivalent now.
    std::optional<MenuShortcut> shortcut;
    friend bool operator==(const Command&, const Command&) = default;
  };

  bool isWindowRead = false;
  /// The window that commands act on; nothing when there is none.
  std::optional<Window> window;
  bool areMenusRead = false;
  /// By path: all that were looked for.
  std::map<std::vector<std::string>, Command> commands;
  friend bool operator==(const ApplicationSnapshot&, const ApplicationSnapshot&) = default;

  /// Null when it was not looked for.
  const Command* command(const std::vector<std::string>& path) const;
  /// Roughly, what the snapshot takes in memory.
  std::size_t byteCount() const;
};

}  // namespace rondora

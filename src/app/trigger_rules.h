#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "model/pie_configuration.h"
#include "platform/workspace.h"

// The decisions between a trigger and an action, free of any state.

namespace rondora {

/// The trigger of a menu that no hotkey opened: it can neither be held nor repeated.
inline constexpr HotkeyConfig kNoTrigger{-1, 0};

/// The trigger steps the highlight when it is pressed again.
bool repeats(const HotkeyConfig& trigger);

/// The menu that a hotkey means which `candidates` (indices into `menus`) share: the displayed one, else the first with
/// a hotkey.
std::optional<std::size_t> resolveMenuIndex(std::span<const std::uint32_t> candidates,
                                            const std::vector<PieMenu>& menus, std::optional<std::size_t> displayed);

enum class Toggle { show, step, close };
/// What a trigger of `menu` does. `displayed` is the menu on screen.
Toggle toggleOutcome(const PieMenu& menu, const HotkeyConfig& trigger, const std::optional<Uuid>& displayed);

/// Seconds between restoring the previous application and the action, so that the application takes keys by then.
/// Nothing for an action that runs at once and restores nothing.
std::optional<double> restoreDelay(const MenuAction& action);

/// Whether the commands of an application that became active are worth reading ahead.
bool prefetchesAppCommands(const PieConfiguration& configuration, const RunningApplication& application,
                           std::string_view ownBundleIdentifier);

}  // namespace rondora

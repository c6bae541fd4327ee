#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "model/pie_configuration.h"
#include "platform/workspace.h"

// The stateless decisions between a trigger and an action.

namespace rondora {

/// The trigger of a menu that was opened without a hotkey: it can neither be held nor repeated.
inline constexpr HotkeyConfig kNoTrigger{-1, 0};

/// True when pressing the trigger again steps the highlight.
bool repeats(const HotkeyConfig& trigger);

/// The menu to open for a hotkey that `candidates` (indices into `menus`) share: the displayed one, otherwise the first
/// with a hotkey.
std::optional<std::size_t> resolveMenuIndex(std::span<const std::uint32_t> candidates,
                                            const std::vector<PieMenu>& menus, std::optional<std::size_t> displayed);

enum class Toggle { show, step, close };
/// What a trigger of `menu` does. `displayed` is the menu on screen.
Toggle toggleOutcome(const PieMenu& menu, const HotkeyConfig& trigger, const std::optional<Uuid>& displayed);

/// Seconds between restoring the previous application and the action, so that the application receives keys by then.
/// Nothing for an action that runs at once and restores nothing.
std::optional<double> restoreDelay(const MenuAction& action);

/// True when an enabled application-commands menu has a hotkey or a trackpad gesture.
bool hasLiveAppCommandsMenu(const PieConfiguration& configuration);

/// True when the commands of an application that became active are worth prefetching.
bool prefetchesAppCommands(const PieConfiguration& configuration, const RunningApplication& application,
                           std::string_view ownBundleIdentifier);

}  // namespace rondora

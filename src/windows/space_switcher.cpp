#include "windows/space_switcher.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/key_codes.h"
#include "platform/key_event.h"

namespace rondora {
namespace {

constexpr double kPauseBetweenPresses = 0.06;  // seconds

constexpr std::uint64_t kControlAndFunction = event_flags::kControl | event_flags::kFunction;

using Position = std::vector<std::uint64_t>::difference_type;

std::vector<std::uint64_t> identifiedSpaces(const DisplaySpaces& display) {
  std::vector<std::uint64_t> spaces;
  for (const auto& space : display.spaces) {
    if (space) spaces.push_back(*space);
  }
  return spaces;
}

std::optional<Position> positionOf(std::uint64_t space, const std::vector<std::uint64_t>& spaces) {
  const auto found = std::find(spaces.begin(), spaces.end(), space);
  if (found == spaces.end()) return std::nullopt;
  return found - spaces.begin();
}

}  // namespace

void SpaceSwitcher::switchSpaceWithSystemShortcut(std::uint32_t window, const std::string& bundleID) {
  const std::int64_t steps = spaceSteps(window).value_or(0);
  if (steps == 0) return;
  const SpaceShortcut shortcut = steps > 0 ? SpaceShortcut::right : SpaceShortcut::left;
  const auto key = configuredKey(shortcut);
  if (!key) {
    ports_.log.standard("focus " + bundleID + ": space shortcut " + std::to_string(static_cast<int>(shortcut)) +
                        " disabled");
    return;
  }
  ports_.log.standard("focus " + bundleID + ": switching space by " + std::to_string(steps) + " step(s) via shortcut");
  for (std::int64_t remaining = std::abs(steps); remaining > 0; --remaining) press(*key);
}

void SpaceSwitcher::press(const KeyCombination& key) {
  post(key, true);
  post(key, false);
  ports_.clock.sleep(kPauseBetweenPresses);
}

void SpaceSwitcher::post(const KeyCombination& key, bool isDown) {
  const auto event =
      ports_.keyEvents.makeKeyEvent(KeyEventSourceState::hidSystemState, key.keyCode, isDown, {key.flags});
  if (event) ports_.keyEvents.post(*event, KeyEventTap::hid);
}

std::optional<std::int64_t> SpaceSwitcher::spaceSteps(std::uint32_t window) const {
  const auto spacesOfWindow = ports_.spaces.spacesForWindow(window);
  if (!spacesOfWindow || spacesOfWindow->empty()) return std::nullopt;
  for (const DisplaySpaces& display : ports_.spaces.managedDisplaySpaces().value_or(std::vector<DisplaySpaces>())) {
    const auto spaces = identifiedSpaces(display);
    const auto windowPosition = positionOf(spacesOfWindow->front(), spaces);
    if (!windowPosition) continue;
    const auto currentPosition = display.currentSpace ? positionOf(*display.currentSpace, spaces) : std::nullopt;
    if (!currentPosition) return std::nullopt;
    return *windowPosition - *currentPosition;
  }
  return std::nullopt;
}

std::optional<SpaceSwitcher::KeyCombination> SpaceSwitcher::configuredKey(SpaceShortcut shortcut) const {
  const KeyCombination byDefault{shortcut == SpaceShortcut::left ? key_codes::kLeftArrow : key_codes::kRightArrow,
                                 kControlAndFunction};
  const auto setting = ports_.symbolicHotKeys.symbolicHotKey(static_cast<int>(shortcut));
  if (!setting) return byDefault;
  if (setting->enabled == false) return std::nullopt;
  if (!setting->parameters || setting->parameters->size() < 3) return byDefault;
  return KeyCombination{static_cast<std::uint16_t>((*setting->parameters)[1]),
                        static_cast<std::uint64_t>((*setting->parameters)[2])};
}

}  // namespace rondora

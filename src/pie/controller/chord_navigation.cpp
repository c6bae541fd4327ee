#include "pie/controller/chord_navigation.h"

#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

/// Collapses auto-repeat and duplicate deliveries of one press.
constexpr double kMinStepInterval = 0.018;  // seconds

}  // namespace

void ChordNavigation::begin(const std::optional<HotkeyConfig>& hotkey) {
  hotkey_ = hotkey;
  ignoresUntilMainKeyUp_ = true;
  lastAdvanceUptime_.reset();
}

void ChordNavigation::end() {
  hotkey_.reset();
  lastAdvanceUptime_.reset();
}

void ChordNavigation::keyUp(const KeyEvent& event) {
  if (isMainKey(event)) ignoresUntilMainKeyUp_ = false;
}

bool ChordNavigation::repeatsOpeningKey(const KeyEvent& event) const {
  return event.isRepeat && ignoresUntilMainKeyUp_ && isMainKey(event);
}

bool ChordNavigation::isStep(const KeyEvent& event) const {
  if (ignoresUntilMainKeyUp_ || !isMainKey(event) || !hotkey_->isAssigned() || hotkey_->isStandaloneFn()) return false;
  return CarbonModifiers::carbon(event.modifierFlags) == hotkey_->carbonModifiers;
}

bool ChordNavigation::admitsStep(double uptime) {
  if (lastAdvanceUptime_ && uptime - *lastAdvanceUptime_ < kMinStepInterval) return false;
  lastAdvanceUptime_ = uptime;
  return true;
}

}  // namespace rondora

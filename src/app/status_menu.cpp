#include "app/status_menu.h"

#include <cstddef>

namespace rondora {
namespace {

// Places in the status item's menu; a separator lies between them.
constexpr std::size_t kSettingsIndex = 0;
constexpr std::size_t kQuitIndex = 2;

MenuEntry separator() {
  MenuEntry entry;
  entry.isSeparator = true;
  return entry;
}

}  // namespace

MenuEntry StatusMenu::settingsEntry() const {
  return {std::string(localization_.text(StringKey::settings)), "gearshape.fill", actions_.openSettings, false};
}

MenuEntry StatusMenu::quitEntry() const {
  return {std::string(localization_.text(StringKey::quit)), "rectangle.portrait.and.arrow.right", actions_.quitApp,
          false};
}

std::vector<MenuEntry> StatusMenu::entries() const { return {settingsEntry(), separator(), quitEntry()}; }

void StatusMenu::setupMainMenu() { shell_.setMainMenu(entries()); }

void StatusMenu::setupStatusBar() {
  statusItem_ = statusBar_.makeStatusItem({"RondoraStatusItem", "Rondora", "Rondora", entries()});
}

void StatusMenu::refreshLocalizedTitles() {
  if (statusItem_) {
    statusItem_->setMenuTitle(kSettingsIndex, std::string(localization_.text(StringKey::settings)));
    statusItem_->setMenuTitle(kQuitIndex, std::string(localization_.text(StringKey::quit)));
  }
  setupMainMenu();
}

std::optional<std::string> StatusMenu::visibilityProblem() const {
  return statusItem_ ? statusItem_->visibilityProblem() : std::nullopt;
}

Subscription StatusMenu::onVisibilityChanged(std::function<void()> observer) {
  return statusItem_ ? statusItem_->onVisibilityChanged(std::move(observer)) : Subscription();
}

}  // namespace rondora

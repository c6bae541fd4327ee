#include "app/status_menu.h"

#include <cstddef>
#include <utility>

#include "base/program_identity.h"

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
  return {std::string(services_.localization.text(StringKey::settings)), "gearshape.fill", services_.openSettings,
          false};
}

MenuEntry StatusMenu::quitEntry() const {
  return {std::string(services_.localization.text(StringKey::quit)), "rectangle.portrait.and.arrow.right",
          services_.quitApp, false};
}

std::vector<MenuEntry> StatusMenu::entries() const { return {settingsEntry(), separator(), quitEntry()}; }

void StatusMenu::setupMainMenu() { services_.shell.setMainMenu(entries()); }

void StatusMenu::setupStatusBar() {
  statusItem_ = services_.statusBar.makeStatusItem({.autosaveName = "RondoraStatusItem",
                                                    .length = StatusItemLength::square,
                                                    .imagePosition = StatusItemImagePosition::imageOnly,
                                                    .role = StatusItemRole::menuButton,
                                                    .toolTip = std::string(program_identity::kName),
                                                    .accessibilityLabel = std::string(program_identity::kName),
                                                    .menu = entries()});
  if (statusItem_) statusItemWatch_ = std::make_unique<StatusItemWatch>(*statusItem_, services_.mainQueue);
}

void StatusMenu::refreshLocalizedTitles() {
  if (statusItem_) {
    statusItem_->setMenuTitle(kSettingsIndex, std::string(services_.localization.text(StringKey::settings)));
    statusItem_->setMenuTitle(kQuitIndex, std::string(services_.localization.text(StringKey::quit)));
  }
  setupMainMenu();
}

void StatusMenu::showHotkeys(const std::string& lines) {
  const std::string name(program_identity::kName);
  if (statusItem_) statusItem_->setToolTip(lines.empty() ? name : name + "\n" + lines);
}

std::optional<std::string> StatusMenu::visibilityProblem() const {
  return statusItemWatch_ ? statusItemWatch_->problem() : std::nullopt;
}

bool StatusMenu::hasNoRoom() const { return statusItem_ && statusItem_->visibility() == StatusItemVisibility::noRoom; }

Subscription StatusMenu::onVisibilityChanged(std::function<void()> observer) {
  if (!statusItemWatch_) return {};
  return statusItemWatch_->onChanged(std::move(observer));
}

}  // namespace rondora

#include "app/settings_services.h"

#include <algorithm>

#include "model/ring_order.h"

namespace rondora {
namespace {

std::vector<PieMenuItem> reordered(std::vector<PieMenuItem> items, const std::vector<std::size_t>& order) {
  std::vector<PieMenuItem> result;
  for (const std::size_t from : order) {
    if (from >= items.size()) return items;
    result.push_back(items[from]);
    result.back().sectorIndex = static_cast<std::int64_t>(result.size()) - 1;
  }
  return result;
}

}  // namespace

SettingsServices::SettingsServices(const Ports& ports)
    : ports_(ports),
      history(ports.session, ports.config, ports.clock),
      navigation(history),
      hotkeys({ports.recorder, history, ports.notifications, ports.localization, ports.modifierNames, ports.hotkeys}),
      menus({history, navigation, ports.localization, ports.random, ports.trigger, ports.itemTitle}),
      menu({history, navigation, ports.localization, ports.random, ports.pasteboard, ports.itemTitle,
            ports.trackpadNote}),
      item({history, navigation, ports.localization, ports.recorder, ports.modifierNames, ports.applicationName,
            ports.canDo, ports.snippetHint,
            [this](const PieMenuItem& tried, std::function<void(std::string)> ended) {
              attempted_ = tried.id;
              attemptEnded_ = std::move(ended);
              ports_.run(tried, navigation.menu()->id);
            }}),
      commandSets({history, ports.workspace, ports.menus, ports.localization, ports.random, ports.keyEquivalent,
                   [this](std::string notice) { navigation.tell(std::move(notice)); }}),
      excluded({history, ports.workspace, ports.applications.order, ports.localization, ports.ownBundleIdentifier}),
      appearance(history, navigation, ports.localization),
      general({history, ports.localization, ports.haptics, ports.trackpads, ports.desktop, ports.login,
               ports.permissions, ports.permissionRequests, ports.showsStatusItem, ports.failures, ports.pressFinding}),
      backup({ports.config,
              history,
              ports.kept,
              ports.files,
              ports.workspace,
              {ports.localization, ports.modifierNames, ports.itemTitle, ports.applicationName}}),
      preview(previewServices()),
      commandSetsChanged_(commandSets.onChanged([this] { preview.refresh(); })),
      navigationChanged_(navigation.onChanged([this] { preview.refresh(); })) {}

SettingsModels SettingsServices::models() {
  if (!std::exchange(isOpened_, true) && ports_.hasProblem()) navigation.open(SettingsPage::session);
  return {ports_.localization,
          history,
          navigation,
          menus,
          menu,
          item,
          preview,
          commandSets,
          excluded,
          appearance,
          general,
          backup,
          ports_.applications,
          recentIcons,
          ports_.fileChooser};
}

void SettingsServices::actionEnded(const PieMenuItem& ended, const std::string& problem) {
  if (attempted_ != ended.id) return;
  attempted_.reset();
  if (const auto tell = std::exchange(attemptEnded_, nullptr)) tell(problem);
}

bool SettingsServices::showsCommands() const {
  return menu.menu() != nullptr && menu.menu()->kind == PieMenuKind::appCommands;
}

RingPreview::Ring SettingsServices::ring(const std::vector<std::size_t>& order) const {
  PieMenu shown;
  if (menu.menu() != nullptr) shown = showsCommands() ? commandSets.ringMenu() : *menu.menu();
  if (!order.empty()) shown.items = reordered(inRingOrder(std::move(shown.items)), order);
  return ports_.ring(shown);
}

std::optional<std::size_t> SettingsServices::chosenSector() const {
  if (showsCommands()) return commandSets.chosenPlace();
  return navigation.item() == nullptr ? std::nullopt : menu.place(navigation.item()->id);
}

void SettingsServices::chooseSector(std::optional<std::size_t> sector) {
  const auto idAt = [sector](const auto& items) {
    return sector && *sector < items.size() ? std::optional(items[*sector].id) : std::nullopt;
  };
  if (showsCommands()) return commandSets.chooseEntry(idAt(commandSets.items()));
  if (menu.isStandard()) navigation.choose(idAt(inRingOrder(menu.menu()->items)));
}

void SettingsServices::moveSector(std::size_t from, std::size_t to) {
  const auto items = showsCommands()     ? commandSets.items()
                     : menu.isStandard() ? inRingOrder(menu.menu()->items)
                                         : std::vector<PieMenuItem>();
  if (from >= items.size()) return;
  if (showsCommands()) return commandSets.moveEntry(items[from].id, to);
  menu.moveItem(items[from].id, to);
}

RingPreview::Services SettingsServices::previewServices() {
  return {.haptics = ports_.haptics,
          .hapticFeedbackEnabled = [this] { return history.document().hapticFeedbackEnabled; },
          .editsSectors =
              [this] { return navigation.page() == SettingsPage::menu && (menu.isStandard() || showsCommands()); },
          .ring = [this](const auto& order) { return ring(order); },
          .chosen = [this] { return chosenSector(); },
          .choose = [this](std::optional<std::size_t> sector) { chooseSector(sector); },
          .move = [this](std::size_t from, std::size_t to) { moveSector(from, to); },
          .turn =
              [this](double rotation) {
                if (showsCommands()) return commandSets.setRotationDegrees(rotation);
                menu.setRotation(rotation);
              }};
}

}  // namespace rondora

#include "input/hotkeys/hotkey_manager.h"

#include <map>
#include <string>
#include <utility>

namespace rondora {
namespace {

constexpr std::uint32_t kSignature = 0x50494521;  // "PIE!"

bool fits32Bits(std::int64_t value) { return std::in_range<std::uint32_t>(value); }

bool isLeftToTap(const HotkeyConfig& hotkey) { return hotkey.isStandaloneFn() || hotkey.hasFunctionModifier(); }

}  // namespace

HotkeyManager::HotkeyManager(HotkeyService& service, const HotkeyHIDTap::Ports& tapPorts)
    : service_(service), tapPorts_(tapPorts), log_(tapPorts.log) {}

HotkeyManager::~HotkeyManager() {
  service_.setOverlayRule(nullptr);
  unregisterAll();
}

void HotkeyManager::registerAll(const std::vector<PieMenu>& menus) {
  unregisterAll();
  startTap(menus);
  handler_ = service_.installEventHandler(
      weakSelf_.bind([](HotkeyManager& self, const HotKeyEvent* event) { return self.handleHotKeyEvent(event); }));
  for (Group& shared : group(collectEntries(menus))) {
    const bool ok = registerGroup(shared);
    recordRegistration(ok, shared.hotkey);
    if (!ok) refused_.push_back(std::move(shared));
  }
  listFailures();
}

void HotkeyManager::retryRefused() {
  for (Group& shared : std::exchange(refused_, {})) {
    if (registerGroup(shared)) {
      recordRegistration(true, shared.hotkey);
    } else {
      refused_.push_back(std::move(shared));
    }
  }
  listFailures();
}

void HotkeyManager::retakeTapKeys() const {
  if (hidTap_) hidTap_->retakeKeys();
}

void HotkeyManager::unregisterAll() {
  registrations_.clear();
  refused_.clear();
  failedRegistrationMenuIndices_.clear();
  handler_.reset();
  if (hidTap_) hidTap_->stop();
}

void HotkeyManager::startTap(const std::vector<PieMenu>& menus) {
  if (!hidTap_) hidTap_ = std::make_unique<HotkeyHIDTap>(tapPorts_);
  hidTap_->onPressed = weakSelf_.bind(
      [](HotkeyManager& self, MenuIndices indices, ModifierHold modifiers) { self.pressed(indices, modifiers); });
  hidTap_->onReleased = weakSelf_.bind([](HotkeyManager& self, MenuIndices indices) { self.released(indices); });
  hidTap_->start(menus);
}

std::vector<HotkeyManager::HotkeyEntry> HotkeyManager::collectEntries(const std::vector<PieMenu>& menus) {
  std::vector<HotkeyEntry> entries;
  for (std::size_t i = 0; i < menus.size(); ++i) {
    if (!menus[i].hasLiveHotkey() || isLeftToTap(menus[i].hotkey)) continue;
    entries.push_back({static_cast<int>(i), menus[i].hotkey});
  }
  return entries;
}

std::vector<HotkeyManager::Group> HotkeyManager::group(const std::vector<HotkeyEntry>& entries) {
  std::vector<Group> groups;
  std::map<std::pair<std::int64_t, std::int64_t>, std::size_t> places;
  for (const HotkeyEntry& entry : entries) {
    const auto [place, isNew] = places.try_emplace({entry.hotkey.keyCode, entry.hotkey.carbonModifiers}, groups.size());
    if (isNew) groups.push_back({entry.hotkey, {}});
    groups[place->second].menuIndices.push_back(static_cast<std::uint32_t>(entry.index));
  }
  return groups;
}

std::optional<Subscription> HotkeyManager::registerEventHotKey(const HotkeyConfig& hotkey, std::uint32_t id) {
  if (!fits32Bits(hotkey.keyCode) || !fits32Bits(hotkey.carbonModifiers)) return std::nullopt;
  auto reference = service_.registerEventHotKey(static_cast<std::uint32_t>(hotkey.keyCode),
                                                static_cast<std::uint32_t>(hotkey.carbonModifiers), {kSignature, id});
  if (!reference || !*reference) return std::nullopt;
  return reference;
}

bool HotkeyManager::registerGroup(Group& group) {
  const std::uint32_t id = group.menuIndices.front();
  auto reference = registerEventHotKey(group.hotkey, id);
  if (!reference) return false;
  registrations_.emplace(id, Registration{group.hotkey, std::move(group.menuIndices), std::move(*reference)});
  return true;
}

void HotkeyManager::recordRegistration(bool ok, const HotkeyConfig& hotkey) {
  if (!hotkey.isCommandTabStyle()) return;
  log_.standard(std::string("carbon backup for ⌘Tab-style hotkey registered=") + (ok ? "true" : "false"));
  if (ok) hidTap_->setCarbonBacksUpCommandTab(true);
}

/// The tap serves hotkeys like ⌘Tab, so they do not fail.
void HotkeyManager::listFailures() {
  failedRegistrationMenuIndices_.clear();
  for (const Group& shared : refused_) {
    if (shared.hotkey.isCommandTabStyle()) continue;
    failedRegistrationMenuIndices_.insert(failedRegistrationMenuIndices_.end(), shared.menuIndices.begin(),
                                          shared.menuIndices.end());
  }
}

// The result refers to `id` when no registration has it.
HotkeyManager::MenuIndices HotkeyManager::menusOf(const EventHotKeyID& id) const {
  const auto found = registrations_.find(id.id);
  return found == registrations_.end() ? MenuIndices(&id.id, 1) : MenuIndices(found->second.menuIndices);
}

int HotkeyManager::handleHotKeyEvent(const HotKeyEvent* event) {
  if (event == nullptr) return 0;
  if (event->kind == kEventHotKeyPressed) pressed(menusOf(event->id), event->modifiers);
  if (event->kind == kEventHotKeyReleased) released(menusOf(event->id));
  return 0;
}

void HotkeyManager::followRing(Ring ring) {
  service_.setOverlayRule([this, ring = std::move(ring)](const KeyEvent& press, const EventHotKeyID& id) {
    return ring.quickSelects(press) && ring.showsOneOf(menusOf(id));
  });
}

void HotkeyManager::pressed(MenuIndices indices, ModifierHold modifiers) const {
  if (onHotkeyPressed) onHotkeyPressed(indices, modifiers);
}

void HotkeyManager::released(MenuIndices indices) const {
  if (onHotkeyReleased) onHotkeyReleased(indices);
}

std::optional<std::string> HotkeyManager::optionAgainst(const HotkeyConfig& hotkey) const {
  if (!fits32Bits(hotkey.carbonModifiers)) return std::nullopt;
  return service_.optionAgainst(static_cast<std::uint32_t>(hotkey.carbonModifiers));
}

const HotkeyManager::Registration* HotkeyManager::liveRegistration(std::int64_t keyCode,
                                                                   std::int64_t carbonModifiers) const {
  const HotkeyConfig wanted{keyCode, carbonModifiers};
  for (const auto& [id, registration] : registrations_) {
    if (registration.hotkey == wanted) return &registration;
  }
  return nullptr;
}

}  // namespace rondora

#include "input/hotkeys/hotkey_manager.h"

#include <algorithm>
#include <string>
#include <utility>

namespace rondora {
namespace {

constexpr std::uint32_t kSignature = 0x50494521;  // "PIE!"
/// More keys than a hand can hold down, so that noting one does not allocate.
constexpr std::size_t kExpectedHeldKeys = 32;

bool fits32Bits(std::int64_t value) { return std::in_range<std::uint32_t>(value); }

bool isLeftToTap(const HotkeyConfig& hotkey) { return hotkey.isStandaloneFn() || hotkey.hasFunctionModifier(); }

}  // namespace

HotkeyManager::HotkeyManager(HotkeyService& service, Log& log) : service_(service), log_(log) {
  held_.reserve(kExpectedHeldKeys);
}

HotkeyManager::~HotkeyManager() { unregisterAll(); }

void HotkeyManager::registerAll(const std::vector<PieMenu>& menus) {
  unregisterAll();
  startTap(menus);
  handler_ = service_.installEventHandler(
      weakSelf_.bind([](HotkeyManager& self, const HotKeyEvent* event) { return self.handleHotKeyEvent(event); }));
  for (Group& shared : group(collectEntries(menus))) registerGroup(std::move(shared));
}

void HotkeyManager::unregisterAll() {
  registrations_.clear();
  failedRegistrationMenuIndices_.clear();
  handler_.reset();
  if (hidTap_) hidTap_->stop();
}

void HotkeyManager::startTap(const std::vector<PieMenu>& menus) {
  if (!hidTap_) hidTap_ = std::make_unique<HotkeyHIDTap>();
  hidTap_->onPressed = weakSelf_.bind([](HotkeyManager& self, MenuIndices indices) { self.pressed(indices); });
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
  for (const HotkeyEntry& entry : entries) {
    auto found = std::find_if(groups.begin(), groups.end(),
                              [&](const Group& candidate) { return candidate.hotkey == entry.hotkey; });
    if (found == groups.end()) found = groups.insert(groups.end(), Group{entry.hotkey, {}});
    found->menuIndices.push_back(static_cast<std::uint32_t>(entry.index));
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

void HotkeyManager::registerGroup(Group group) {
  const std::uint32_t id = group.menuIndices.front();
  auto reference = registerEventHotKey(group.hotkey, id);
  recordRegistration(reference.has_value(), group.hotkey, group.menuIndices);
  if (!reference) return;
  registrations_.emplace(id, Registration{group.hotkey, std::move(group.menuIndices), std::move(*reference)});
}

void HotkeyManager::recordRegistration(bool ok, const HotkeyConfig& hotkey,
                                       const std::vector<std::uint32_t>& menuIndices) {
  if (hotkey.isCommandTabStyle()) {
    log_.standard(std::string("carbon backup for ⌘Tab-style hotkey registered=") + (ok ? "true" : "false"));
    if (ok) hidTap_->setCarbonBacksUpCommandTab(true);
  } else if (!ok) {
    failedRegistrationMenuIndices_.insert(failedRegistrationMenuIndices_.end(), menuIndices.begin(), menuIndices.end());
  }
}

int HotkeyManager::handleHotKeyEvent(const HotKeyEvent* event) {
  if (event == nullptr) return 0;
  const auto found = registrations_.find(event->id.id);
  const bool isKnown = found != registrations_.end();
  const MenuIndices indices = isKnown ? MenuIndices(found->second.menuIndices) : MenuIndices(&event->id.id, 1);
  if (event->kind == kEventHotKeyPressed) {
    if (isKnown) markHeld(found->second.hotkey);
    pressed(indices);
  } else if (event->kind == kEventHotKeyReleased) {
    if (isKnown) forgetHeld(found->second.hotkey.keyCode);
    released(indices);
  }
  return 0;
}

void HotkeyManager::pressed(MenuIndices indices) const {
  if (onHotkeyPressed) onHotkeyPressed(indices);
}

void HotkeyManager::released(MenuIndices indices) const {
  if (onHotkeyReleased) onHotkeyReleased(indices);
}

const HotkeyManager::Registration* HotkeyManager::liveRegistration(std::int64_t keyCode,
                                                                   std::int64_t carbonModifiers) const {
  const HotkeyConfig wanted{keyCode, carbonModifiers};
  for (const auto& [id, registration] : registrations_) {
    if (registration.hotkey == wanted) return &registration;
  }
  return nullptr;
}

bool HotkeyManager::isHeld(std::int64_t keyCode) const {
  return std::any_of(held_.begin(), held_.end(),
                     [keyCode](const HotkeyConfig& hotkey) { return hotkey.keyCode == keyCode; });
}

void HotkeyManager::markHeld(const HotkeyConfig& hotkey) {
  forgetHeld(hotkey.keyCode);
  held_.push_back(hotkey);
}

void HotkeyManager::forgetHeld(std::int64_t keyCode) {
  std::erase_if(held_, [keyCode](const HotkeyConfig& hotkey) { return hotkey.keyCode == keyCode; });
}

void HotkeyManager::reportPress(const Registration& registration) {
  markHeld(registration.hotkey);
  pressed(registration.menuIndices);
}

bool HotkeyManager::reportRelease(std::int64_t keyCode) {
  const auto found = std::find_if(held_.begin(), held_.end(),
                                  [keyCode](const HotkeyConfig& hotkey) { return hotkey.keyCode == keyCode; });
  if (found == held_.end()) return false;
  const Registration* registration = liveRegistration(keyCode, found->carbonModifiers);
  held_.erase(found);
  if (registration == nullptr) return false;
  released(registration->menuIndices);
  return true;
}

}  // namespace rondora

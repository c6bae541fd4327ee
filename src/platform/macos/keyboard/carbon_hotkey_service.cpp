#include "platform/macos/keyboard/carbon_hotkey_service.h"

#include <Carbon/Carbon.h>

#include <array>
#include <utility>

namespace rondora::macos {
namespace {

// The core compares with its own names.
static_assert(::kEventHotKeyPressed == rondora::kEventHotKeyPressed);
static_assert(::kEventHotKeyReleased == rondora::kEventHotKeyReleased);
static_assert(sizeof(::EventHotKeyID) == 8);

constexpr OptionBits kNoOptions = 0;
constexpr std::array<EventTypeSpec, 2> kEvents = {
    {{kEventClassKeyboard, ::kEventHotKeyPressed}, {kEventClassKeyboard, ::kEventHotKeyReleased}}};

OSStatus handle(EventHandlerCallRef /*next*/, EventRef event, void* context) {
  const auto& handler = *static_cast<const HotkeyService::Handler*>(context);
  if (event == nullptr) return handler(nullptr);
  ::EventHotKeyID id{};
  if (GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof id, nullptr, &id) != noErr) {
    return handler(nullptr);
  }
  const HotKeyEvent hotKeyEvent{.kind = GetEventKind(event), .id = {id.signature, id.id}};
  return handler(&hotKeyEvent);
}

}  // namespace

std::optional<Subscription> CarbonHotkeyService::registerEventHotKey(std::uint32_t keyCode,
                                                                     std::uint32_t carbonModifiers, EventHotKeyID id) {
  EventHotKeyRef reference = nullptr;
  const OSStatus status = RegisterEventHotKey(keyCode, carbonModifiers, {id.signature, id.id},
                                              GetApplicationEventTarget(), kNoOptions, &reference);
  if (status != noErr || reference == nullptr) return std::nullopt;
  return Subscription([reference] { UnregisterEventHotKey(reference); });
}

Subscription CarbonHotkeyService::onModifiersMoved(std::function<void()> observer) {
  return modifiersMoved_.subscribe(std::move(observer));
}

Subscription CarbonHotkeyService::installEventHandler(Handler handler) {
  const auto shared = std::make_shared<Handler>(std::move(handler));
  EventHandlerRef reference = nullptr;
  const OSStatus status = InstallEventHandler(GetApplicationEventTarget(), handle, kEvents.size(), kEvents.data(),
                                              shared.get(), &reference);
  if (status != noErr || reference == nullptr) return {};
  return Subscription([shared, reference] { RemoveEventHandler(reference); });
}

}  // namespace rondora::macos

#include "platform/macos/keyboard/carbon_hotkey_service.h"

#include <Carbon/Carbon.h>

#include <array>
#include <utility>

#include "model/hotkey_config.h"

namespace rondora::macos {
namespace {

// The core compares with its own names.
static_assert(::kEventHotKeyPressed == rondora::kEventHotKeyPressed);
static_assert(::kEventHotKeyReleased == rondora::kEventHotKeyReleased);
static_assert(sizeof(::EventHotKeyID) == 8);
// Masks and key codes are the document's own.
static_assert(carbon::kCommand == cmdKey && carbon::kShift == shiftKey && carbon::kOption == optionKey);
static_assert(carbon::kControl == controlKey && carbon::kFunction == kEventKeyModifierFnMask);
static_assert(kFnKeyCode == kVK_Function && kTabKeyCode == kVK_Tab && kEscapeKeyCode == kVK_Escape);

constexpr OptionBits kNoOptions = 0;
/// Hot keys wait while one of our menus is open, and would all come at its end.
constexpr EventTime kMaxPressAge = 1;  // seconds
constexpr std::array<EventTypeSpec, 2> kEvents = {
    {{kEventClassKeyboard, ::kEventHotKeyPressed}, {kEventClassKeyboard, ::kEventHotKeyReleased}}};

OSStatus handle(EventHandlerCallRef /*next*/, EventRef event, void* context) {
  const auto& handler = *static_cast<const HotkeyService::Handler*>(context);
  if (event == nullptr) return handler(nullptr);
  ::EventHotKeyID id{};
  if (GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof id, nullptr, &id) != noErr) {
    return handler(nullptr);
  }
  const UInt32 kind = GetEventKind(event);
  if (kind == ::kEventHotKeyPressed && GetCurrentEventTime() - GetEventTime(event) > kMaxPressAge) return noErr;
  const HotKeyEvent hotKeyEvent{.kind = kind, .id = {id.signature, id.id}};
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

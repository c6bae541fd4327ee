#include "platform/macos/keyboard/quartz_event_taps.h"

#include <ApplicationServices/ApplicationServices.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "platform/key_event.h"
#include "platform/macos/conversions/key_event_flags.h"
#include "platform/macos/conversions/swallowed_keys.h"
#include "platform/macos/foundation/cf_ref.h"
#include "platform/macos/foundation/run_loop_source.h"

namespace rondora::macos {
namespace {

// The core's own names of the system's numbers.
static_assert(tap_events::kKeyDown == kCGEventKeyDown && tap_events::kKeyUp == kCGEventKeyUp);
static_assert(tap_events::kFlagsChanged == kCGEventFlagsChanged);
static_assert(tap_events::kDisabledByTimeout == static_cast<std::uint32_t>(kCGEventTapDisabledByTimeout));
static_assert(tap_events::kDisabledByUserInput == static_cast<std::uint32_t>(kCGEventTapDisabledByUserInput));
static_assert(event_flags::kShift == kCGEventFlagMaskShift && event_flags::kControl == kCGEventFlagMaskControl);
static_assert(event_flags::kOption == kCGEventFlagMaskAlternate && event_flags::kCommand == kCGEventFlagMaskCommand);
static_assert(event_flags::kFunction == kCGEventFlagMaskSecondaryFn);
static_assert(event_flags::kNumericPad == kCGEventFlagMaskNumericPad);

/// The system has switched the tap off: not an event of a key, and keys may have come and gone since.
bool isDisabled(std::uint32_t type) {
  return type == tap_events::kDisabledByTimeout || type == tap_events::kDisabledByUserInput;
}

class QuartzEventTap final : public EventTap {
 public:
  explicit QuartzEventTap(EventTaps::Callback callback) : callback_(std::move(callback)) {}
  ~QuartzEventTap() override;
  QuartzEventTap(const QuartzEventTap&) = delete;
  QuartzEventTap& operator=(const QuartzEventTap&) = delete;

  bool create(CGEventMask mask);
  Subscription addToRunLoop() override;
  void enable(bool isEnabled) override;

 private:
  static CGEventRef handle(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* context);
  TapVerdict judge(CGEventType type, CGEventRef event);

  EventTaps::Callback callback_;
  SwallowedKeys swallowed_;
  HeldFn fn_;
  CFRef<CFMachPortRef> port_;
};

QuartzEventTap::~QuartzEventTap() {
  if (port_) CFMachPortInvalidate(port_.get());
}

bool QuartzEventTap::create(CGEventMask mask) {
  port_ = CFRef<CFMachPortRef>::adopt(
      CGEventTapCreate(kCGHIDEventTap, kCGHeadInsertEventTap, kCGEventTapOptionDefault, mask, handle, this));
  return static_cast<bool>(port_);
}

Subscription QuartzEventTap::addToRunLoop() {
  constexpr CFIndex kOrder = 0;
  return addToMainRunLoop(
      CFRef<CFRunLoopSourceRef>::adopt(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port_.get(), kOrder)));
}

// A tap that is switched on after the user has taken the permission away stops the whole keyboard.
void QuartzEventTap::enable(bool isEnabled) { CGEventTapEnable(port_.get(), isEnabled && AXIsProcessTrusted()); }

CGEventRef QuartzEventTap::handle(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* context) {
  return static_cast<QuartzEventTap*>(context)->judge(type, event) == TapVerdict::swallow ? nullptr : event;
}

TapVerdict QuartzEventTap::judge(CGEventType type, CGEventRef event) {
  const auto number = static_cast<std::uint32_t>(type);
  if (event == nullptr || isDisabled(number)) {
    swallowed_ = {};
    fn_ = {};
    return callback_(number, 0, 0);
  }
  const std::int64_t keyCode = CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode);
  const bool isRepeat = CGEventGetIntegerValueField(event, kCGKeyboardEventAutorepeat) != 0;
  return swallowed_.judge(callback_, number, keyCode, fn_.flagsOf(number, keyCode, CGEventGetFlags(event)), isRepeat);
}

}  // namespace

std::unique_ptr<EventTap> QuartzEventTaps::create(std::uint64_t eventMask, std::span<const TapKey> /*keys*/,
                                                  Callback callback) {
  auto tap = std::make_unique<QuartzEventTap>(std::move(callback));
  if (!tap->create(eventMask)) return nullptr;
  return tap;
}

std::vector<EventTapRecord> QuartzEventTaps::list() const {
  std::uint32_t count = 0;
  if (CGGetEventTapList(0, nullptr, &count) != kCGErrorSuccess) return {};
  std::vector<CGEventTapInformation> taps(count);
  if (CGGetEventTapList(count, taps.data(), &count) != kCGErrorSuccess) return {};
  std::vector<EventTapRecord> records;
  for (const CGEventTapInformation& tap : std::span(taps).first(std::min<std::size_t>(count, taps.size()))) {
    records.push_back({tap.tappingProcess, tap.enabled, tap.eventsOfInterest});
  }
  return records;
}

std::int32_t QuartzEventTaps::ownProcess() const { return getpid(); }

}  // namespace rondora::macos

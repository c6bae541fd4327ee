#include <gtest/gtest.h>

#include "doubles/allocation_counter.h"
#include "doubles/fake_log.h"
#include "input/grabbed_key_router.h"
#include "input/hotkey_manager.h"

namespace rondora {
namespace {

class PlainHotkeyService final : public HotkeyService {
 public:
  std::optional<Subscription> registerEventHotKey(std::uint32_t, std::uint32_t, EventHotKeyID) override {
    return Subscription([] {});
  }
  Subscription onModifiersMoved(std::function<void()>) override {
    return Subscription([] {});
  }
  Subscription installEventHandler(Handler newHandler) override {
    handler = std::move(newHandler);
    return Subscription([] {});
  }

  Handler handler;
};

TEST(HotPath, DispatchingAndRoutingKeysAllocatesAndLogsNothing) {
  FakeLog log;
  PlainHotkeyService service;
  HotkeyManager manager(service, log);
  std::size_t reported = 0;
  manager.onHotkeyPressed = [&](HotkeyManager::MenuIndices indices) { reported += indices.size(); };
  manager.onHotkeyReleased = manager.onHotkeyPressed;
  std::vector<PieMenu> menus(3);
  for (PieMenu& menu : menus) menu.hotkey = {49, carbon::kControl};
  manager.registerAll(menus);
  GrabbedKeyRouter router(manager,
                          {[](HotkeyManager::MenuIndices) { return true; }, [](const KeyEvent&) { return false; }});
  KeyEvent down;
  down.keyCode = 49;
  down.modifierFlags = event_flags::kControl;
  KeyEvent up = down;
  up.type = KeyEventType::keyUp;
  KeyEvent repeat = down;
  repeat.isRepeat = true;
  KeyEvent other = down;
  other.keyCode = 12;
  const std::size_t before = allocationCount();
  for (const std::uint32_t id : {0U, 9U}) {
    for (const std::uint32_t kind : {kEventHotKeyPressed, kEventHotKeyReleased}) {
      const HotKeyEvent event{kind, {0, id}};
      service.handler(&event);
    }
  }
  for (const KeyEvent* event : {&down, &repeat, &other, &up}) router.offer(*event);
  EXPECT_EQ(allocationCount() - before, 0U);
  EXPECT_TRUE(log.lines.empty());
  EXPECT_EQ(reported, 2U * 3U + 2U * 1U + 2U * 3U);
}

}  // namespace
}  // namespace rondora

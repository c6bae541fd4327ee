#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <random>

#include "unit/app/program.h"

namespace rondora {
namespace {

/// Random keys, pointer moves and changes of the document; at the end every key is released.
class RandomInputTest : public ProgramTest {
 protected:
  enum class Document { staysAsItIs, changes };

  RandomInputTest() { useMenus(allMenus()); }

  /// Hotkeys that share a key, menus that share a hotkey, a label as a trigger, and the menus that fill themselves.
  std::vector<PieMenu> allMenus() {
    return {menu("chord", {49, kControlOption}),
            menu("shared key", {49, carbon::kControl}),
            menu("plain", {kKKey, 0}),
            menu("shared hotkey", {kKKey, 0}),
            menu("plain shared key", {49, 0}),
            menu("label", {kOneKey, 0}),
            runningAppsMenu({48, carbon::kCommand}),
            appCommandsMenu({46, 0})};
  }

  std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  void useHands() {
    const std::uint16_t key = kKeys[below(std::size(kKeys))];
    if (std::ranges::count(down_, key) == 0) {
      down_.push_back(key);
      return desktop.keyboard.press(key);
    }
    if (below(3) == 0) return desktop.keyboard.repeat(key);
    std::erase(down_, key);
    desktop.keyboard.release(key);
  }
  void doSomething(Document document) {
    const std::function<void()> rare[] = {
        [&] { pointAtSector(below(4)); },
        [&] { below(2) == 0 ? desktop.overlay.moveTo(kPointer) : desktop.keyboard.tap(Key::kEscapeKey); },
        [&] {
          if (below(4) == 0) desktop.overlay.click();
        },
        [&] { desktop.time.advance(static_cast<double>(below(30)) / 100); },
        [&] {
          if (!subActions.requests.empty()) subActions.requests.back()({PieSubAction{"Quit", "", {}, {}, {}}});
        },
        [&] { shuffleHotkeys(); },
        [&] { program.delegate().triggers().trackpadGestureMonitor().onTap(4); }};
    constexpr std::size_t kHands = 5, kChanges = 2;
    const std::size_t choice = below(std::size(rare) + kHands - (document == Document::changes ? 0 : kChanges));
    choice < kHands ? useHands() : rare[choice - kHands]();
  }
  void shuffleHotkeys() {
    PieConfiguration configuration = program.config().current();
    auto& menus = configuration.menus;
    for (PieMenu& each : menus) std::swap(each.hotkey, menus[below(menus.size())].hotkey);
    std::swap(menus[0], menus[below(menus.size())]);
    menus[below(menus.size())].runningAppsMenuEnabled ^= true;
    menus[0].trackpadFingerCount = 4;
    program.config().save(std::move(configuration));
  }
  void releaseEverything() {
    while (!down_.empty()) {
      desktop.keyboard.release(down_.back());
      down_.pop_back();
    }
    desktop.time.advance(1);
  }
  void play(Document document) {
    for (int i = 0; i < 60; ++i) {
      doSomething(document);
      if (below(2) == 0) desktop.time.runUntilIdle();
      const auto living = std::ranges::count(desktop.overlay.panels, false, &PanelRecord::isGone);
      ASSERT_EQ(living, isMenuUp() ? 1 : 0);
    }
    releaseEverything();
    std::erase_if(desktop.overlay.panels, [](const auto& panel) { return panel->isGone; });
  }
  void playRounds(int rounds, Document document) {
    launch();
    for (int round = 0; round < rounds; ++round) {
      play(document);
      if (HasFatalFailure()) return;
      if (document == Document::changes) press({Key::kEscapeKey});
      ASSERT_FALSE(isMenuUp()) << "round " << round << ": " << shownMenu();
      release({Key::kEscapeKey});
    }
    EXPECT_EQ(desktop.keyboard.monitorCount(), 0U);
    EXPECT_EQ(desktop.keyboard.handlerCount(), 1U);
    EXPECT_EQ(desktop.keyboard.currentModifierFlags(), 0U);
    EXPECT_FALSE(desktop.overlay.holdsKeyboard());
  }

  static constexpr std::uint16_t kKeys[] = {Key::kControlKey, Key::kOptionKey, Key::kCommandKey, Key::kSpaceKey,
                                            Key::kTabKey,     kKKey,           kOneKey,          46};
  std::mt19937_64 random_{20261};
  std::vector<std::uint16_t> down_;
};

TEST_F(RandomInputTest, ReleasingEveryKeyAlwaysEndsTheMenu) { playRounds(2000, Document::staysAsItIs); }

TEST_F(RandomInputTest, EscapeEndsTheMenuWhileTheDocumentChanges) { playRounds(100, Document::changes); }

}  // namespace
}  // namespace rondora

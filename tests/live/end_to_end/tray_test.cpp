#include <gmock/gmock.h>

#include <algorithm>
#include <mutex>

#include "live/end_to_end/end_to_end_test.h"
#include "support/bus_service.h"

namespace rondora::live {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// A panel that shows status items of the session bus and is their watcher, too.
class Panel {
 public:
  explicit Panel(const PrivateDesktop& desktop)
      : desktop_(desktop),
        list_(desktop.environment().at("DBUS_SESSION_BUS_ADDRESS"), "org.kde.StatusNotifierWatcher",
              [this](const auto& caller, const auto& method, GVariant*) { return answer(caller, method); }) {}

  bool waitForItem() {
    return waitUntil([this] {
      const std::lock_guard lock(mutex_);
      return items_.size() == 1;
    });
  }
  /// The item's menu as GVariant text.
  std::string menu() const { return ask({"GetLayout", "0", "1", "[]"}).value_or(""); }
  /// Clicks the entry; false if there is none.
  bool choose(const std::string& label) const {
    const std::string entries = menu();
    const auto found = entries.find("'label': <'" + label + "'>");
    if (found == std::string::npos) return false;
    const std::string id = std::to_string(std::stoi(entries.substr(entries.rfind("<(", found) + 2)));
    return ask({"Event", id, "clicked", "<''>", "0"}).has_value();
  }

 private:
  GVariant* answer(const std::string& caller, const std::string& method) {
    constexpr const char* kInterface =
        "<node><interface name='org.kde.StatusNotifierWatcher'>"
        "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/></interface></node>";
    if (method == "Introspect") return g_variant_new("(s)", kInterface);
    if (method == "Get") return g_variant_new("(v)", g_variant_new_boolean(TRUE));
    if (method != "RegisterStatusNotifierItem") return nullptr;
    const std::lock_guard lock(mutex_);
    items_.push_back(caller);
    return g_variant_new_tuple(nullptr, 0);
  }
  std::optional<std::string> ask(std::vector<std::string> question) const {
    question.front().insert(0, "com.canonical.dbusmenu.");
    std::vector<std::string> command{"gdbus",        "call",          "--session", "--dest",
                                     items_.front(), "--object-path", "/MenuBar",  "--method"};
    command.insert(command.end(), question.begin(), question.end());
    return desktop_.outputOf(command);
  }

  const PrivateDesktop& desktop_;
  std::mutex mutex_;
  std::vector<std::string> items_;
  BusService list_;
};

/// The status item in trays and panels that appear and vanish. At first there is none.
class TrayTest : public EndToEndTest {
 protected:
  TrayTest() : EndToEndTest({WindowManager::openbox, Compositor::picom, Tray::none}) {}

  void startIn(const std::string& language) {
    Document configuration = document({main_});
    configuration["language"] = language;
    start(configuration);
  }

  std::optional<Area> icon() { return client_.trayIconOf(program_->pid()); }
  enum class Entry { settings, quit };
  void startTray() { tray_ = desktop_.startTray(); }
  /// The tray takes the icon in at one place and moves it to another.
  bool waitForIcon(Area& place) {
    return waitUntilSteady([&] {
      const Area before = std::exchange(place, icon().value_or(Area{}));
      return place.width > 0 && place == before && tray_->isWaiting() && program_->isWaiting();
    });
  }
  /// Qt counts the program as active for 0.4 s after its window has closed, and closes a menu at the end of that time.
  void openIconMenu(std::uint8_t button) {
    client_.letServerRun(std::chrono::milliseconds(500));
    Area place;
    ASSERT_TRUE(waitForIcon(place));
    client_.movePointer({place.x + place.width / 2, place.y + place.height / 2});
    client_.click(button);
    ASSERT_TRUE(waitUntil([&] { return !program_->popups().empty(); }));
  }
  /// Opens the icon's menu and clicks the entry.
  void chooseFromIcon(std::uint8_t button, Entry entry) {
    ASSERT_NO_FATAL_FAILURE(openIconMenu(button));
    const Area menu = program_->popups().front().area;
    const int quarters = entry == Entry::settings ? 1 : 3;
    client_.movePointer({menu.x + menu.width / 2, menu.y + menu.height * quarters / 4});
    client_.click();
    ASSERT_TRUE(waitUntil([&] { return !program_->isRunning() || program_->popups().empty(); }));
  }
  std::size_t linesAboutTheItem() {
    const auto lines = program_->logLines();
    return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("error: status item not visible: ");
    }));
  }

  const Document main_ = menu("Main", kControlAltSpace, snippetItems("Main", 4), -45);
  std::unique_ptr<ChildProcess> tray_;
};

TEST_F(TrayTest, FollowsTraysThatAppearAndVanish) {
  startIn("en");
  ASSERT_TRUE(waitForSettings()) << "without a tray the settings are the only way in";
  const std::size_t lines = linesAboutTheItem();
  EXPECT_GE(lines, 1U);
  closeWindows();
  startTray();
  for (const std::uint8_t button : {std::uint8_t{XCB_BUTTON_INDEX_3}, std::uint8_t{XCB_BUTTON_INDEX_1}}) {
    chooseFromIcon(button, Entry::settings);
    EXPECT_TRUE(waitForSettings()) << "button " << int(button);
    closeWindows();
  }
  const auto isNoticed = [&] {
    return readFile(RunningProgram::defaults(desktop_)).find("ForHiddenStatusItem=false") != std::string::npos;
  };
  ASSERT_TRUE(waitUntil(isNoticed)) << "the settings would open at the next start without a tray";
  tray_.reset();
  EXPECT_TRUE(waitUntil([&] { return linesAboutTheItem() == lines + 1; }));
  startTray();
  chooseFromIcon(XCB_BUTTON_INDEX_3, Entry::quit);
  EXPECT_EQ(program_->waitForExit(), 0);
}

TEST_F(TrayTest, RingTakesKeyboardAndPointerFromTheIconsMenu) {
  startTray();
  startIn("en");
  ASSERT_NO_FATAL_FAILURE(openIconMenu(XCB_BUTTON_INDEX_3));
  ASSERT_TRUE(trigger(main_["id"]));
  ASSERT_TRUE(program_->waitForRing());
  EXPECT_EQ(program_->popups().size(), 1U);
  client_.movePointer({client_.pointer().x, client_.pointer().y - kMiddleOfRing});
  client_.click();
  EXPECT_TRUE(waitForClipboard("Main 0"));
  expectAtRest();
}

TEST_F(TrayTest, FollowsPanelsThatAppearAndVanish) {
  startIn("ar");
  ASSERT_TRUE(waitForWindow());
  std::optional<Panel> panel(desktop_);
  ASSERT_TRUE(panel->waitForItem());
  EXPECT_THAT(panel->menu(), AllOf(HasSubstr("'الإعدادات'"), HasSubstr("'separator'"), HasSubstr("'إنهاء'")));
  panel.emplace(desktop_);
  ASSERT_TRUE(panel->waitForItem()) << "the panel started again";
  ASSERT_TRUE(panel->choose("إنهاء"));
  EXPECT_EQ(program_->waitForExit(), 0);
}

}  // namespace
}  // namespace rondora::live

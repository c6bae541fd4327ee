#include "unit/app/program.h"

#include <algorithm>
#include <cmath>

#include "pie/geometry/sector_geometry.h"

namespace rondora {

Platform ProgramTest::platform() {
  return {.log = desktop.log,
          .clock = desktop.time,
          .random = desktop.random,
          .mainQueue = desktop.time,
          .files = desktop.files,
          .defaults = desktop.defaults,
          .environment = desktop.environment,
          .network = desktop.web,
          .pictureDecoder = desktop.pictureDecoder,
          .hotkeyService = desktop.keyboard,
          .eventTaps = desktop.keyboard.taps,
          .secureInput = desktop.keyboard.taps,
          .symbolicHotKeySwitch = desktop.keyboard.taps,
          .eventMonitors = desktop.keyboard,
          .recordingKeyboard = desktop.keyboard,
          .keyEvents = desktop.keyEvents,
          .pointer = desktop.overlay,
          .screens = desktop.screens,
          .haptics = desktop.haptics,
          .trackpads = desktop.trackpads,
          .multitouch = desktop.multitouch,
          .overlayPanels = desktop.overlay,
          .announcer = desktop.announcer,
          .statusBar = desktop.statusBar,
          .windows = desktop.windows,
          .fileChooser = desktop.fileChooser,
          .textOrder = desktop.textOrder,
          .shell = desktop.shell,
          .sessionEvents = desktop.session,
          .workspace = desktop.workspace,
          .applications = desktop.workspace,
          .pasteboard = desktop.pasteboard,
          .permissionService = desktop.permissions,
          .loginItem = desktop.loginItem,
          .windowList = desktop.windowServer,
          .frontProcess = desktop.windowServer,
          .accessibility = desktop.accessibility,
          .spaces = desktop.windowServer,
          .symbolicHotKeys = desktop.windowServer,
          .commandAccessibility = desktop.accessibility,
          .instance = instance,
          .makeSerialQueue = [this](std::string_view) { return desktop.serialQueue(); },
          .wantTrackpads = [this](bool wants) { wantsTrackpads = wants; },
          .wantApplicationMenus = [this](bool wants) { wantsApplicationMenus = wants; },
          .applicationsWithoutMenus = [this] { return applicationsWithoutMenus; },
          .useInterfaceLanguage = [this](AppLanguage language) { languages.push_back(language); },
          .onInstalledApplicationsChanged = {},
          .warmUp = {},
          .handOverClipboard = [this] { ending.emplace_back("clipboard"); },
          .modifierNames = kPcModifierNames,
          .pasteKeys = "Ctrl+V",
          .subActions = &subActions};
}

ProgramTest::ProgramTest() {
  desktop.workspace.install("org.example.browser", "Browser");
  desktop.workspace.install("org.example.editor", "Editor");
  browser = desktop.workspace.start("org.example.browser");
  editor = desktop.workspace.start("org.example.editor");
  desktop.defaults.setBoolean(AppLaunchState::kHasSeenPermissionIntro, true);
  desktop.overlay.moveTo(kPointer);
  subActions.target = editor;
}

PieMenu ProgramTest::menu(const std::string& name, HotkeyConfig hotkey, PieMenuKind kind) {
  PieMenu made;
  made.id = desktop.random.uuid();
  made.name = name;
  made.hotkey = hotkey;
  made.kind = kind;
  if (kind != PieMenuKind::standard) return made;
  using Entry = std::pair<const char*, MenuAction>;
  const Entry items[] = {Entry("browser", LaunchApp{"org.example.browser"}), Entry("snippet", Snippet{"hello"}),
                         Entry("keystroke", Keystroke{7, 0}), Entry("nothing", Unassigned{})};
  for (const auto& [title, action] : items) {
    PieMenuItem& item = made.items.emplace_back();
    item.title = title;
    item.action = action;
    item.sectorIndex = std::ssize(made.items) - 1;
  }
  return made;
}

void ProgramTest::useMenus(std::vector<PieMenu> menus) {
  for (PieMenu& special : std::vector{runningAppsMenu({}), appCommandsMenu({})}) {
    if (std::ranges::find(menus, special.kind, &PieMenu::kind) == menus.end()) menus.push_back(std::move(special));
  }
  PieConfiguration configuration = program.config().current();
  configuration.menus = std::move(menus);
  program.config().save(std::move(configuration));
  desktop.time.runUntilIdle();
}

void ProgramTest::launch() {
  program.start();
  desktop.time.runUntilIdle();
}

void ProgramTest::press(std::initializer_list<std::uint16_t> keys) {
  desktop.keyboard.pressAll(keys);
  desktop.time.runUntilIdle();
}

void ProgramTest::release(std::initializer_list<std::uint16_t> keys) {
  desktop.keyboard.releaseAll(keys);
  desktop.time.runUntilIdle();
}

void ProgramTest::pointAtSector(std::size_t index) {
  constexpr std::size_t kSectors = 4;
  constexpr double kDistance = 100;
  const double angle = startAngle(index, kSectors, 0) + sectorWidth(kSectors) / 2;
  desktop.overlay.moveTo(kPointer + Point{std::cos(angle), std::sin(angle)} * kDistance);
}

std::string ProgramTest::shownMenu() {
  const auto& id = program.pieMenuWindow().displayedMenuId();
  if (!isMenuUp() || !id) return "";
  const PieMenu* menu = program.config().current().menu(*id);
  return menu == nullptr ? "unknown" : menu->name;
}

std::string ProgramTest::highlightedItem() {
  const auto selection = program.pieMenuWindow().currentSelection();
  if (!selection) return "";
  if (const auto* chosen = std::get_if<PieMenuItem>(&*selection)) return chosen->title;
  return std::get<PieSubAction>(*selection).title;
}

}  // namespace rondora

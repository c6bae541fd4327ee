#include "unit/app/program.h"

#include <algorithm>
#include <cmath>

#include "pie/geometry/sector_geometry.h"

namespace rondora {

Program::Program(FakePlatform& on)
    : desktop(on),
      configManager({on.files, on.time, on.log, on.random, notifications}),
      permissions(on.permissions, on.time, on.shell),
      history(on.workspace),
      runningAppsMenuItems(on.workspace, history, on.environment.identifier),
      actions(on.actionPorts<ActionServices::Ports>(), on.serialQueues.make()),
      delegate(services()) {}

AppServices Program::services() {
  return {desktop.time,
          desktop.log,
          desktop.random,
          desktop.defaults,
          desktop.environment,
          desktop.workspace,
          desktop.screens,
          desktop.keyboard,
          desktop.keyboard,
          desktop.statusBar,
          desktop.windows,
          desktop.shell,
          desktop.permissions,
          notifications,
          configManager,
          localization,
          permissions.snapshot(),
          history,
          runningAppsMenuItems,
          actions.appLauncher,
          subActions,
          [this] { return makePieMenuWindow(); },
          [this] { ++switcherRestorations; },
          [this](const std::optional<std::string>& problem) { statusItemProblems.push_back(problem); }};
}

std::unique_ptr<PieMenuWindowController> Program::makePieMenuWindow() {
  if (whenOverlayIsMade) whenOverlayIsMade();
  auto made = std::make_unique<PieMenuWindowController>(
      PieMenuWindowController::Ports{desktop.overlay, desktop.screens, desktop.overlay, desktop.haptics,
                                     desktop.keyboard, desktop.time, desktop.time},
      PieMenuWindowController::Environment{});
  overlay = made.get();
  return made;
}

ProgramTest::ProgramTest() {
  desktop.workspace.install("org.example.browser", "Browser");
  desktop.workspace.install("org.example.editor", "Editor");
  browser = desktop.workspace.start("org.example.browser");
  editor = desktop.workspace.start("org.example.editor");
  desktop.defaults.setBoolean(AppLaunchState::kHasSeenPermissionIntro, true);
  desktop.overlay.moveTo(kPointer);
  program.subActions.target = editor;
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
  PieConfiguration configuration = program.configManager.current();
  configuration.menus = std::move(menus);
  program.configManager.save(std::move(configuration));
  desktop.time.runUntilIdle();
}

void ProgramTest::launch() {
  program.delegate.applicationDidFinishLaunching();
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

std::string ProgramTest::shownMenu() const {
  const auto& id = program.overlay->displayedMenuId();
  if (!isMenuUp() || !id) return "";
  const PieMenu* menu = program.configManager.current().menu(*id);
  return menu == nullptr ? "unknown" : menu->name;
}

std::string ProgramTest::highlightedItem() const {
  const auto selection = program.overlay->currentSelection();
  if (!selection) return "";
  if (const auto* chosen = std::get_if<PieMenuItem>(&*selection)) return chosen->title;
  return std::get<PieSubAction>(*selection).title;
}

}  // namespace rondora

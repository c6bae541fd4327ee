#include "support/contenders.h"

#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

#include "desktop/document.h"
#include "desktop/running_program.h"
#include "desktop/wait.h"
#include "support/frame_watcher.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr std::array<const char*, 8> kOwnIcons = {"safari",    "terminal",   "folder",   "gearshape",
                                                  "note.text", "music.note", "envelope", "star"};
constexpr std::array<const char*, 8> kPeerIcons = {
    "web-browser",       "utilities-terminal", "folder", "preferences-system", "text-editor",
    "audio-volume-high", "mail-send-receive",  "starred"};

std::string peerRings() {
  std::string text =
      "<?xml version=\"1.0\"?>\n<pies>\n <pie name=\"Bench\" id=\"100\" icon=\"starred\" "
      "hotkey=\"&lt;Control&gt;&lt;Alt&gt;q\">\n";
  for (std::size_t i = 0; i < kPeerIcons.size(); ++i) {
    text += "  <slice type=\"key\" name=\"Item " + std::to_string(i) + "\" icon=\"" + kPeerIcons[i] +
            "\" command=\"F12\" quickAction=\"false\"/>\n";
  }
  return text + " </pie>\n</pies>\n";
}

/// Each hotkey is grabbed with and without Caps Lock and Num Lock.
Contender startAndWait(const PrivateDesktop& desktop, XClient& client, const std::vector<std::string>& command,
                       std::size_t hotkeys) {
  constexpr std::size_t kGrabsPerHotkey = 4;
  const Moment start = std::chrono::steady_clock::now();
  auto process = desktop.start(command);
  const bool ready = waitUntil([&] {
    return !process->isRunning() || client.resourceCount(process->pid(), "PASSIVE GRAB") >= hotkeys * kGrabsPerHotkey;
  });
  if (!ready || !process->isRunning()) throw std::runtime_error(command.back() + " bound no hotkey");
  return {std::move(process), millisecondsBetween(start, std::chrono::steady_clock::now())};
}

Document ownRing(const std::string& name, Hotkey hotkey, int items, double animationDuration) {
  auto entries = snippetItems("Item", items);
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i]["icon"] = kOwnIcons[i % kOwnIcons.size()];
  Document ring = menu(name, hotkey, std::move(entries));
  ring["animationDuration"] = animationDuration;
  return ring;
}

}  // namespace

Contender startRondora(const PrivateDesktop& desktop, XClient& client, const OwnSetting& setting) {
  constexpr double kUsualAnimation = 0.2;  // seconds
  std::vector<Document> menus;
  for (int i = 0; i < setting.otherMenus; ++i) menus.push_back(ownRing("other " + std::to_string(i), {}, 8, 0));
  menus.push_back(ownRing("plain", kControlAltSpace, setting.items, 0));
  menus.back()["trackpadFingerCount"] = setting.fingers;
  menus.push_back(ownRing("animated", kControlAltB, setting.items, kUsualAnimation));
  std::vector<std::string> variables = setting.variables;
  variables.push_back("QT_SCALE_FACTOR=" + std::to_string(setting.scale));
  return startRondoraWith(desktop, client, live::document(menus), variables);
}

Contender startRondoraWith(const PrivateDesktop& desktop, XClient& client, const Document& document,
                           const std::vector<std::string>& variables) {
  constexpr std::size_t kHotkeys = 2;
  writeFile(RunningProgram::document(desktop), document.dump(2));
  writeFile(RunningProgram::defaults(desktop),
            "pie.hasSeenPermissionIntro=true\npie.hasAutoOpenedSettingsAfterPermissions=true\n"
            "pie.settingsAutoOpenAfterPermissionsMigrationDone=true\n");
  std::vector<std::string> command{"env"};
  command.insert(command.end(), variables.begin(), variables.end());
  command.push_back(RunningProgram::file());
  return startAndWait(desktop, client, command, kHotkeys);
}

Contender startPeer(const PrivateDesktop& desktop, XClient& client) {
  writeFile(desktop.configHome() / "gnome-pie" / "pies.conf", peerRings());
  return startAndWait(desktop, client, {"gnome-pie"}, 1);
}

Contender startBareWindow(const PrivateDesktop& desktop, XClient& client) {
  return startAndWait(desktop, client, {RONDORA_BARE_WINDOW}, 1);
}

}  // namespace rondora::bench

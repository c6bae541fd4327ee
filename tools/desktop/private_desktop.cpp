#include "desktop/private_desktop.h"

#include <signal.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "desktop/wait.h"
#include "desktop/x_client.h"

namespace rondora::live {
namespace {

// Variables that would lead programs to the user's own session.
constexpr const char* kForeignVariables =
    "WAYLAND_DISPLAY XDG_SESSION_TYPE XDG_CURRENT_DESKTOP DESKTOP_SESSION XAUTHORITY QT_QPA_PLATFORM QT_SCALE_FACTOR "
    "RONDORA_FIRST_LAUNCH";

std::map<std::string, std::string> privateEnvironment(const std::filesystem::path& home) {
  std::map<std::string, std::string> environment{{"HOME", home.string()}, {"LC_ALL", "C.UTF-8"}};
  for (const auto& [name, folder] : {std::pair{"XDG_CONFIG_HOME", "config"},
                                     {"XDG_DATA_HOME", "data"},
                                     {"XDG_CACHE_HOME", "cache"},
                                     {"XDG_STATE_HOME", "state"},
                                     {"XDG_RUNTIME_DIR", "runtime"}}) {
    std::filesystem::create_directories(home / folder);
    std::filesystem::permissions(home / folder, std::filesystem::perms::owner_all);
    environment[name] = (home / folder).string();
  }
  // Default applications that do not depend on the installed ones.
  writeFile(home / "config" / "mimeapps.list",
            "[Default Applications]\ntext/plain=org.xfce.mousepad.desktop\ninode/directory=pcmanfm.desktop\n");
  std::filesystem::create_directories(home / "bin");
  std::filesystem::create_symlink("/usr/bin/xterm", home / "bin" / "x-terminal-emulator");
  const char* path = std::getenv("PATH");
  environment["PATH"] = (home / "bin").string() + ":" + (path != nullptr ? path : "/usr/bin:/bin");
  return environment;
}

std::string monitorName(std::size_t index) { return "monitor" + std::to_string(index); }

void require(bool came, const char* what) {
  if (!came) throw std::runtime_error(std::string("did not come up: ") + what);
}

/// The command without the user's session variables, run by `script`, whose arguments are `argument` and the
/// command.
std::vector<std::string> inShell(const std::string& script, const std::string& argument,
                                 const std::vector<std::string>& command) {
  std::vector<std::string> result{"sh", "-c", std::string("unset ") + kForeignVariables + "; " + script, "sh",
                                  argument};
  result.insert(result.end(), command.begin(), command.end());
  return result;
}

/// Makes the file look like the journal, so that the program logs nothing to the machine's own.
std::vector<std::string> withOutputIn(const std::filesystem::path& file, const std::vector<std::string>& command) {
  return inShell(R"(log=$1; shift; : >"$log"; export JOURNAL_STREAM=$(stat -c %d:%i "$log"))"
                 R"(; exec "$@" >"$log" 2>&1 </dev/null)",
                 file, command);
}

/// Processes of this user whose environment holds `variable`, NAME=VALUE; a zombie has none.
std::vector<pid_t> processesWith(const std::string& variable) {
  const std::string wanted = '\0' + variable + '\0';
  std::vector<pid_t> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    const std::string environment = '\0' + readFile(entry.path() / "environ");
    if (environment.find(wanted) != std::string::npos) found.push_back(std::stoi(name));
  }
  return found;
}

}  // namespace

PrivateDesktop::PrivateDesktop(DesktopParts parts)
    : environment_(privateEnvironment(folder_.path())), server_(parts.screen) {
  unsetenv("SESSION_MANAGER");  // of the session that runs the tests
  environment_["DISPLAY"] = server_.display();
  startBus();
  startParts(parts);
}

PrivateDesktop::~PrivateDesktop() {
  while (!processes_.empty()) processes_.pop_back();
  endRemainingProcesses();
}

// Applications started by the desktop's programs or its bus would keep writing to the folder.
void PrivateDesktop::endRemainingProcesses() const {
  for (const int signal : {SIGTERM, SIGKILL}) {
    const auto areGone = [&] {
      const auto remaining = processesWith("HOME=" + environment_.at("HOME"));
      for (const pid_t process : remaining) kill(process, signal);
      return remaining.empty();
    };
    if (waitUntil(areGone, std::chrono::seconds(2))) return;
  }
}

void PrivateDesktop::startBus() {
  const std::string address = "unix:path=" + (folder_.path() / "runtime" / "session-bus").string();
  std::filesystem::remove(logFile("dbus-daemon"));
  bus_ = start({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address", "--address=" + address});
  const auto isThere = [&] { return readFile(logFile("dbus-daemon")).find(address) != std::string::npos; };
  require(waitUntil(isThere), "the session bus");
  environment_["DBUS_SESSION_BUS_ADDRESS"] = address;
  environment_["DBUS_SYSTEM_BUS_ADDRESS"] = address;
}

void PrivateDesktop::restartBus() {
  bus_.reset();
  startBus();
}

void PrivateDesktop::startParts(const DesktopParts& parts) {
  XClient client(display());
  if (!parts.monitors.empty()) setMonitors(parts.monitors);
  if (parts.windowManager != WindowManager::none) {
    startWindowManager(parts.windowManager);
    require(waitUntil([&] { return client.windowManagerAnswers(); }), "the window manager");
  }
  if (parts.compositor == Compositor::picom) {
    startPart({"picom", "--config", "/dev/null", "--backend", "xrender"});
    require(waitUntil([&] { return client.selectionOwner("_NET_WM_CM_S0") != XCB_NONE; }), "the compositor");
    const auto hasPainted = [&] { return client.capture({0, 0, 1, 1}).at(0, 0) != 0; };  // the bare root is black
    require(waitUntil(hasPainted), "the compositor's picture");
  }
  if (parts.tray == Tray::tint2) processes_.push_back(startTray());
}

std::unique_ptr<ChildProcess> PrivateDesktop::startTray() const {
  const auto configuration = configHome() / "tray";
  writeFile(configuration, "panel_items = S\npanel_size = 200 24\npanel_position = bottom right\n");
  auto tray = start({"tint2", "-c", configuration});
  XClient client(display());
  require(waitUntil([&] { return client.selectionOwner("_NET_SYSTEM_TRAY_S0") != XCB_NONE; }), "the tray");
  return tray;
}

void PrivateDesktop::startWindowManager(WindowManager manager) {
  if (manager == WindowManager::openbox) startPart({"openbox"});
  if (manager == WindowManager::xfwm4) startPart({"xfwm4", "--compositor=off"});
  if (manager == WindowManager::metacity) startPart({"metacity", "--no-composite"});
  if (manager == WindowManager::i3) {
    // Without a configuration i3 starts its wizard. Without the first line it takes this one for an old one, whose
    // conversion adds a bar, which takes its place and that of the tray at any time. No keys are bound.
    const auto configuration = configHome() / "i3" / "config";
    writeFile(configuration, "# i3 config file (v4)\nfont pango:monospace 8\n");
    startPart({"i3", "-c", configuration});
  }
}

std::unique_ptr<ChildProcess> PrivateDesktop::start(const std::vector<std::string>& command) const {
  const std::string name = std::filesystem::path(command.front()).filename();
  return std::make_unique<ChildProcess>(withOutputIn(logFile(name), command), environment_);
}

std::unique_ptr<ChildProcess> PrivateDesktop::startInTerminal(const std::vector<std::string>& command) const {
  return std::make_unique<ChildProcess>(inShell(R"(shift; exec "$@")", "", command), environment_);
}

std::optional<std::string> PrivateDesktop::outputOf(const std::vector<std::string>& command) const {
  const auto file = folder_.path() / "output";
  ChildProcess process(withOutputIn(file, command), environment_);
  if (process.wait() != 0) return std::nullopt;
  return readFile(file);
}

bool PrivateDesktop::isWaiting() const {
  return std::ranges::all_of(processes_, [](const auto& process) { return process->isWaiting(); });
}

std::vector<pid_t> PrivateDesktop::processesNamed(const std::string& name) const {
  auto found = processesWith("DISPLAY=" + display());
  std::erase_if(found,
                [&](pid_t process) { return readFile("/proc/" + std::to_string(process) + "/comm") != name + '\n'; });
  return found;
}

void PrivateDesktop::addApplication(const std::string& id, const std::string& title) const {
  const std::string command = "xterm -name " + title + " -class " + title + " -T " + title + " -geometry 40x10 -e cat";
  writeFile(
      dataHome() / "applications" / (id + ".desktop"),
      "[Desktop Entry]\nType=Application\nName=" + title + "\nStartupWMClass=" + title + "\nExec=" + command + "\n");
}

// The session manager exports its address to the programs that it starts itself.
void PrivateDesktop::startSessionManager() {
  const auto announcement = folder_.path() / "session-manager";
  const auto script = folder_.path() / "announce";
  writeFile(script, "printenv SESSION_MANAGER >" + announcement.string() + "\n");
  writeFile(folder_.path() / ".xsmstartup", "sh " + script.string() + "\n");
  environment_["SM_SAVE_DIR"] = folder_.path();
  sessionManager_ = start({"xsm"});
  require(waitUntil([&] { return readFile(announcement).ends_with('\n'); }), "the session manager");
  std::string address = readFile(announcement);
  address.pop_back();
  environment_["SESSION_MANAGER"] = address;
}

void PrivateDesktop::setMonitors(const std::vector<Area>& monitors) {
  // The server refuses a second monitor of the same name.
  std::vector<std::string> removal{"xrandr"}, command{"xrandr"};
  for (; monitorCount_ > 0; --monitorCount_) {
    removal.insert(removal.end(), {"--delmonitor", monitorName(monitorCount_ - 1)});
  }
  for (const auto& [x, y, width, height] : monitors) {
    const auto length = [](int pixels) { return std::to_string(pixels) + '/' + std::to_string(pixels / 4); };
    const bool isFirst = monitorCount_ == 0;
    // The server keeps an automatic monitor for each output that has no other.
    command.insert(command.end(),
                   {"--setmonitor", (isFirst ? "*" : "") + monitorName(monitorCount_++),
                    length(width) + 'x' + length(height) + '+' + std::to_string(x) + '+' + std::to_string(y),
                    isFirst ? "screen" : "none"});
  }
  require(outputOf(removal) && outputOf(command), "the monitors");
}

}  // namespace rondora::live

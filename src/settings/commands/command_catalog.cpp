#include "settings/commands/command_catalog.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/unicode.h"
#include "commands/application_snapshot_reader.h"
#include "commands/command_symbol.h"

namespace rondora {
namespace {

using Command = AppMenuCatalog::Command;

std::vector<std::string> wordsOf(std::string_view text) {
  std::istringstream stream{lowerCased(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace

AppSubMenuEntry entryOf(const Command& command) {
  AppSubMenuEntry entry;
  entry.menuPath = command.path;
  if (!command.shortcut) return entry;
  entry.shortcutCharacter = command.shortcut->character;
  entry.shortcutModifiers = command.shortcut->modifiers;
  return entry;
}

AppSubMenuEntry entryOf(AppSubMenuEntry::Kind kind) {
  AppSubMenuEntry entry;
  entry.kind = kind;
  return entry;
}

std::string menusOfPath(const std::vector<std::string>& path) {
  std::string menus;
  for (std::size_t i = 0; i + 1 < path.size(); ++i) menus += (i == 0 ? "" : " › ") + path[i];
  return menus;
}

CommandCatalog::CommandCatalog(const Services& services)
    : services_(services),
      activations_(services_.workspace.onDidActivateApplication(
          [this](const RunningApplication& application) { activated(application); })) {}

void CommandCatalog::show(const std::string& application) {
  if (application == application_) return;
  application_ = application;
  commands_.clear();
  searched_.clear();
  read();
}

void CommandCatalog::readAgain() {
  if (state_ != State::reading) read();
}

void CommandCatalog::read() {
  ++reading_;
  const auto running =
      application_.empty() ? std::vector<RunningApplication>() : services_.workspace.runningApplications(application_);
  if (running.empty()) {
    state_ = State::notRunning;
    commands_.clear();
    searched_.clear();
  } else {
    state_ = State::reading;
    services_.menus.list(running.front().processIdentifier,
                         weakSelf_.bind([reading = reading_](CommandCatalog& self, AppMenuCatalog::Listing listing) {
                           self.arrived(reading, std::move(listing));
                         }));
  }
  changed_.send();
}

void CommandCatalog::arrived(std::uint64_t reading, AppMenuCatalog::Listing listing) {
  if (reading != reading_) return;
  commands_ = std::move(listing.commands);
  searched_.clear();
  for (const Command& command : commands_) {
    std::string text = command.shortcut ? services_.keyEquivalent(*command.shortcut) : "";
    for (const std::string& title : command.path) text += "\n" + title;
    searched_.push_back(lowerCased(text));
  }
  state_ = listing.isComplete ? State::complete : State::incomplete;
  if (commands_.empty()) state_ = State::unreadable;
  changed_.send();
}

/// The user started the application that is shown, or started it again.
void CommandCatalog::activated(const RunningApplication& application) {
  const bool mayHaveMenus = state_ == State::notRunning || state_ == State::unreadable;
  if (mayHaveMenus && !application_.empty() && application.bundleIdentifier == application_) read();
}

std::vector<CommandCatalog::Row> CommandCatalog::rows(std::string_view query) const {
  const std::vector<std::string> words = wordsOf(query);
  std::vector<Row> rows;
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    const auto isFound = [&](const std::string& word) { return searched_[i].find(word) != std::string::npos; };
    if (!std::all_of(words.begin(), words.end(), isFound)) continue;
    const Command& command = commands_[i];
    rows.push_back({i, command.path.back(), std::string(commandSymbol(command.shortcut)), menusOfPath(command.path),
                    command.shortcut ? services_.keyEquivalent(*command.shortcut) : "",
                    command.isEnabled ? "" : std::string(services_.localization.text(StringKey::commandOffNow))});
  }
  return rows;
}

std::string CommandCatalog::note() const {
  if (application_.empty()) return {};
  switch (state_) {
    case State::notRunning:
      return std::string(services_.localization.text(StringKey::catalogNotRunning));
    case State::reading:
      return std::string(services_.localization.text(StringKey::catalogReading));
    case State::unreadable:
      return std::string(services_.localization.text(StringKey::catalogUnreadable));
    case State::incomplete:
      return std::string(services_.localization.text(StringKey::catalogIncomplete));
    case State::complete:
      break;
  }
  return {};
}

/// As the ring finds it: by its path, otherwise by its key equivalent.
const Command* CommandCatalog::find(const AppSubMenuEntry& entry) const {
  const auto atPath = std::find_if(commands_.begin(), commands_.end(),
                                   [&entry](const Command& command) { return command.path == entry.menuPath; });
  if (atPath != commands_.end()) return &*atPath;
  const auto shortcut = storedShortcut(entry);
  if (!shortcut) return nullptr;
  const auto withKey = std::find_if(commands_.begin(), commands_.end(),
                                    [&shortcut](const Command& command) { return command.shortcut == shortcut; });
  return withKey == commands_.end() ? nullptr : &*withKey;
}

ApplicationSnapshot CommandCatalog::snapshot(const std::vector<AppSubMenuEntry>& entries) const {
  using Availability = ApplicationSnapshot::Availability;
  ApplicationSnapshot snapshot;
  if (commands_.empty()) return snapshot;
  for (const AppSubMenuEntry& entry : menuItems(entries)) {
    if (const Command* command = find(entry)) {
      snapshot.commands[entry.menuPath] = {Availability::enabled, command->shortcut};
    } else if (state_ == State::complete) {
      snapshot.commands[entry.menuPath] = {Availability::missing, std::nullopt};
    }
  }
  return snapshot;
}

}  // namespace rondora

#include <algorithm>

#include "doubles/fake_devices.h"
#include "doubles/fake_dialogs.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_workspace.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "settings/running_apps/excluded_applications.h"

namespace rondora {
namespace {

std::string withSpaces(std::string text) {
  std::ranges::replace(text, '_', ' ');
  return text;
}

std::string word(std::string text) {
  std::ranges::replace(text, ' ', '_');
  return text.empty() ? "-" : text;
}

Words commaSeparated(const std::string& text) {
  std::istringstream stream(text == "-" ? "" : text);
  Words words;
  for (std::string each; std::getline(stream, each, ',');) words.push_back(each);
  return words;
}

struct ApplicationsStory : Story {
  using W = const Words&;

  ApplicationsStory() {
    actions = {{"install", [this](W w) { workspace.install(w[0], withSpaces(w[1])); }},
               {"stand-in", [this](W w) { workspace.install(w[0], withSpaces(w[1]), ActivationPolicy::accessory); }},
               {"describe",
                [this](W w) {
                  workspace.searchTexts[w[0]] = {.bundleIdentifier = "",
                                                 .name = "",
                                                 .genericName = w[1] == "-" ? "" : withSpaces(w[1]),
                                                 .keywords = commaSeparated(w[2]),
                                                 .executable = w.size() > 3 && w[3] != "-" ? w[3] : ""};
                }},
               {"run", [this](W w) { workspace.start(w[0]); }},
               {"run-in-background",
                [this](W w) {
                  workspace.addRunning({7, w[0], "Helper", ActivationPolicy::accessory, false, false, 1});
                }},
               {"open", [this](W w) { open(w.empty() ? "" : w[0]); }},
               {"search", [this](W w) { list->search(w.empty() ? "" : joined(w)); }},
               {"changed", [this](W) { installed.send(); }},
               {"language",
                [this](W w) {
                  localization.setLanguage(*appLanguageFromRawValue(w[0]));
                  list->read();
                }},
               {"exclude", [this](W w) { excluded.exclude(w[0]); }},
               {"include", [this](W w) { excluded.include(w[0]); }},
               {"undo", [this](W) { history.undo(); }},
               {"redo", [this](W) { history.redo(); }}};
    observations = {
        {"found",
         [this] { return each([](const auto& one) { return one.bundleIdentifier + (one.isRunning ? "*" : ""); }); }},
        {"details", [this] { return each([](const auto& one) { return word(one.detail); }); }},
        {"last",
         [this] {
           const std::string name = list->found().back().name;
           return word(name);
         }},
        {"excluded", [this] {
           Words words;
           for (const auto& row : excluded.rows()) words.push_back(row.name + (row.note.empty() ? "" : "!"));
           return joined(words);
         }}};
  }
  std::string each(auto text) const {
    Words words;
    for (const ApplicationChoice& one : list->found()) words.push_back(text(one));
    return joined(words);
  }
  void open(const std::string& how) {
    ApplicationList::Offer offer{.kinds = how == "kinds", .runningFirst = how == "running-first", .without = {}};
    if (how == "excluded") offer = excluded.offer();
    if (how.starts_with("without=")) offer.without = {how.substr(how.find('=') + 1)};
    const auto onInstalled = [this](auto observer) { return installed.subscribe(std::move(observer)); };
    list = std::make_unique<ApplicationList>(
        ApplicationList::Services{workspace, workspace, order, localization, onInstalled}, offer);
  }

  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  ConfigManager config{{files, time, log, random, notifications}};
  EditSession session{config, time};
  EditHistory history{session, config, time};
  FakeWorkspace workspace;
  FakeTextOrder order;
  LocalizationStore localization;
  Signal<> installed;
  ExcludedApplications excluded{{history, workspace, order, localization, "own"}};
  std::unique_ptr<ApplicationList> list;
};

TEST(SettingsApplications, Stories) { playStories<ApplicationsStory>("settings_applications"); }

}  // namespace
}  // namespace rondora

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_user_defaults.h"
#include "doubles/fake_workspace.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "settings/backup/settings_backup.h"

namespace rondora {
namespace {

using Document = PieConfiguration;
using Section = SettingsBackup::Section;

/// "+" for what is added, "-" for what is removed, "~" for what changes, with the parts in brackets.
std::string told(const DocumentChanges& changes) {
  Words lines;
  for (const DocumentChange& change : changes) {
    lines.push_back(std::string(1, "+-~"[static_cast<int>(change.kind)]) + change.text +
                    (change.parts.empty() ? "" : " [" + told(change.parts) + "]"));
  }
  return joined(lines);
}

/// Edits are pending until "wait".
struct BackupStory : Story {
  using W = const Words&;

  BackupStory() {
    const auto rest = [](W w) { return joined({w.begin() + 1, w.end()}); };
    actions = {{"put", [=, this](W w) { files.put(w[0], rest(w)); }},
               {"fail", [=, this](W w) { files.failures[w[0]] = rest(w); }},
               {"lose", [this](W w) { files.files.erase(folder + w[0]); }},
               {"heal", [this](W) { files.failures.clear(); }},
               {"nothing-opens", [this](W) { workspace.opensUrls = false; }},
               {"rename", [=, this](W w) { history.edit([&](Document& d) { d.menus[0].name = w[0]; }); }},
               {"german", [this](W) { localization.setLanguage(AppLanguage::german); }},
               {"export", [this](W w) { backup.exportTo(w[0]); }},
               {"import", [this](W w) { backup.readImport(w[0]); }},
               {"restore", [this](W w) { backup.readCopy(folder + w[0]); }},
               {"apply", [this](W) { backup.apply(); }},
               {"cancel", [this](W) { backup.cancel(); }},
               {"keep", [this](W w) { kept.add({.file = folder + w[0]}); }},
               {"find", [this](W) { backup.findCopies(); }},
               {"ask", [this](W w) { backup.askToRemove(folder + w[0]); }},
               {"remove", [this](W) { backup.remove(); }},
               {"reveal", [this](W) { backup.revealCopies(); }},
               {"undo", [this](W) { history.undo(); }},
               {"wait", [this](W) { time.advance(1); }}};
    observations = {{"title", [this] { return backup.preview() ? backup.preview()->title : "none"; }},
                    {"changes", [this] { return backup.preview() ? told(backup.preview()->changes) : "none"; }},
                    {"question", [this] { return backup.question().value_or("none"); }},
                    {"copies", [this] { return copies(); }},
                    {"kept", [this] { return std::to_string(kept.documents().size()); }},
                    {"said", [this] { return said(); }},
                    {"menu", [this] { return history.document().menus[0].name; }},
                    {"disk", [this] { return nameIn(folder + "config.json"); }},
                    {"exported", [this] { return nameIn("/tmp/out.json"); }}};
    files.createFolder("/tmp");
  }
  std::string nameIn(const std::string& file) {
    const auto candidate = config.candidate(file);
    const auto* document = std::get_if<Document>(&candidate);
    return document == nullptr ? "unreadable" : document->menus[0].name;
  }
  std::string copies() {
    Words lines;
    for (const auto& copy : backup.copies()) {
      lines.push_back(copy.reason + ", " + std::to_string(static_cast<int>(time.now() - copy.time)) + " s, " +
                      std::to_string(copy.size) + ": " + copy.contents + ";");
    }
    return joined(lines);
  }
  /// In any section; a problem is marked.
  std::string said() {
    for (const Section section : {Section::file, Section::exporting, Section::importing, Section::copies}) {
      const auto notice = backup.notice(section);
      if (!notice) continue;
      std::string text = (notice->isProblem ? "! " : "") + notice->text;
      std::replace(text.begin(), text.end(), '\n', ' ');
      return text;
    }
    return "nothing";
  }

  const std::string folder = "/home/user/.config/Rondora/";
  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  FakeUserDefaults defaults;
  FakeWorkspace workspace;
  LocalizationStore localization;
  KeptDocuments kept{defaults};
  ConfigManager config{{files, time, log, random, notifications}};
  EditSession session{config, time};
  EditHistory history{session, config, time};
  SettingsBackup backup{{config, history, kept, files, workspace, {localization, kPcModifierNames}}};
};

TEST(SettingsBackup, Stories) { playStories<BackupStory>("settings_backup"); }

struct Difference {
  std::function<void(Document&)> edit;
  std::string told;
};

TEST(SettingsBackup, TellsWhateverDiffers) {
  SeededRandom random;
  LocalizationStore localization;
  Document before = Document::defaultConfig(random);
  before.appSubMenus = {{"org.a", {}, {}}, {"org.b", {}, {}}};
  const auto main = [](const std::string& part) { return "~The menu “Main” changes [~" + part + "]"; };
  const std::vector<Difference> differences = {
      {[](auto& d) { d.menus.erase(d.menus.begin()); }, "-The menu “Main” is removed, items: 6"},
      {[](auto& d) { std::swap(d.menus[0], d.menus[1]); }, "~The menus are in another order"},
      {[](auto& d) { d.menus[0].name = "A\nB"; }, main("Name: Main → A B")},
      {[](auto& d) { d.menus[0].hotkey = {}; }, main("Hotkey: Ctrl + Alt + Space → Unassigned")},
      {[](auto& d) { d.menus[0].trackpadFingerCount = 4; }, main("Fingers on the trackpad: – → 4")},
      {[](auto& d) { d.menus[1].runningAppsMenuEnabled = false; },
       "~The menu “Active apps” changes [~Is switched off]"},
      {[](auto& d) { d.menus[1].runningAppsExcludedBundleIds = {"a"}; },
       "~The menu “Active apps” changes [~Other applications are left out]"},
      {[](auto& d) { d.menus[2].appCommandsDefaultEntries.pop_back(); },
       "~The menu “App commands” changes [~Other commands for applications without their own]"},
      {[](auto& d) { d.menus[0].shortcutDigitOpacity = 1; }, main("It looks different")},
      {[](auto& d) { d.menus[0].globalSidebarIconColorHex = "#000000"; }, main("It looks different")},
      {[](auto& d) { d.menus[0].items[1].title = ""; }, main("The item “Terminal” becomes “2”")},
      {[](auto& d) { d.menus[0].items[1].action = Snippet{"x"}; }, main("The item “Terminal” changes")},
      {[](auto& d) { std::swap(d.menus[0].items[0].sectorIndex, d.menus[0].items[1].sectorIndex); },
       main("The items are in another order")},
      {[](auto& d) { d.appSubMenus.erase(d.appSubMenus.begin()); }, "-The commands for “org.a” are removed"},
      {[](auto& d) { d.appSubMenus[1].rotationDegrees = 5; }, "~The commands for “org.b” change"},
      {[](auto& d) { d.language = AppLanguage::german; }, "~Language: English → Deutsch"},
      {[](auto& d) { d.hapticFeedbackEnabled = false; }, "~Haptic feedback is switched off"},
      {[](auto& d) { d.menus[0].items.resize(6 + kMaxChanges + 5); }, "~Further changes, not shown here: 5]"},
      {[](auto& d) { d.lastModified = 1; }, "none"},
      {[&](auto& d) { d.menus[0].id = d.menus[0].items[0].id = d.menus[1].id = {}; }, "none"}};
  for (const auto& [edit, expected] : differences) {
    Document after = before;
    edit(after);
    const std::string text = told(documentChanges(before, after, {localization, kPcModifierNames}));
    EXPECT_TRUE(text.ends_with(expected)) << text << "\ninstead of " << expected;
  }
}

}  // namespace
}  // namespace rondora

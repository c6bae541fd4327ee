#include "storage/legacy_pie_menu_migration.h"

#include <gtest/gtest.h>

#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/fake_user_defaults.h"
#include "doubles/stories.h"

namespace rondora {
namespace {

/// Reading "changes" or "log" empties it.
struct MigrationStory : Story {
  using W = const Words&;

  MigrationStory() {
    actions = {{"put",
                [this](W w) {
                  files.put(w.at(0), joined({w.begin() + 1, w.end()}));
                }},
               {"put-ill-formed", [this](W w) { files.put(w.at(0), "{\"\xFF\"}"); }},
               {"used",
                [this](W) {
                  defaults.values = {{"NSInitialToolTipDelay", std::int64_t{500}}};
                }},
               {"unused", [this](W) { defaults.values.clear(); }},
               {"introduced-before",
                [this](W) {
                  defaults.predecessor = {{"pie.hasSeenPermissionIntro", true}};
                }},
               {"identifier", [this](W w) { environment.identifier = w.at(0); }},
               {"fail",
                [this](W w) {
                  files.failures = {{w.at(0), joined({w.begin() + 1, w.end()})}};
                }},
               {"run", [this](W) {
                  LegacyPieMenuMigration({files, defaults, environment, log}).run();
                }}};
    observations = {{"changes", [this] { return joined(std::exchange(files.changes, {})); }},
                    {"introduced", [this] { return yesOrNo(defaults.boolean("pie.hasSeenPermissionIntro")); }},
                    {"defaults", [this] { return defaults.isEmpty() ? "none" : "some"; }},
                    {"favicon", [this] { return content("/home/user/.cache/Rondora/favicons/a.png"); }},
                    {"document", [this] { return content("/home/user/.config/Rondora/config.json"); }},
                    {"old-document", [this] { return content("/home/user/.config/PieMenu/config.json"); }},
                    {"log", [this] { return log.take(); }}};
  }
  std::string content(const std::string& path) { return valueAt(files.files, path).value_or("none"); }

  FakeFileSystem files;
  FakeUserDefaults defaults;
  FakeProcessEnvironment environment;
  FakeLog log;
};

TEST(LegacyPieMenuMigrationStories, PlayAsWritten) { playStories<MigrationStory>("legacy_migration"); }

}  // namespace
}  // namespace rondora

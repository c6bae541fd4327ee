#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/unicode.h"
#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/fake_user_defaults.h"
#include "require.h"
#include "storage/configuration_json.h"
#include "storage/legacy_favicon_paths.h"
#include "storage/legacy_pie_menu_migration.h"

// The migration rewrites paths into the favicon cache in the predecessor's document, and nothing else; other bytes stay
// unchanged.

namespace rondora {
namespace {

constexpr const char* kFormer = "/home/user/.config/PieMenu/config.json";
constexpr const char* kOwn = "/home/user/.config/Rondora/config.json";

struct Path {
  std::string_view former;
  std::string_view own;
};
constexpr std::array<Path, 4> kPaths = {{
    {"Caches/PieMenu/favicons/", "Caches/Rondora/favicons/"},
    {"Caches\\/PieMenu\\/favicons\\/", "Caches\\/Rondora\\/favicons\\/"},
    {"home/user/.cache/PieMenu/favicons/", "home/user/.cache/Rondora/favicons/"},
    {"home\\/user\\/.cache\\/PieMenu\\/favicons\\/", "home\\/user\\/.cache\\/Rondora\\/favicons\\/"},
}};

/// The length of the rewritten path at the start of both texts; 0 when there is none.
std::size_t changedPathLength(std::string_view before, std::string_view after) {
  for (const Path& path : kPaths) {
    if (before.starts_with(path.former) && after.starts_with(path.own)) return path.own.size();
  }
  return 0;
}

bool startsWithFormerPath(std::string_view text) {
  for (const Path& path : kPaths) {
    if (text.starts_with(path.former)) return true;
  }
  return false;
}

void requireOnlyPathsChanged(std::string_view before, std::string_view after) {
  require(before.size() == after.size(), "both names are equally long");
  std::size_t changedUpTo = 0;
  for (std::size_t i = 0; i < after.size(); ++i) {
    require(!startsWithFormerPath(after.substr(i)), "no path leads to the former cache");
    changedUpTo = std::max(changedUpTo, i + changedPathLength(before.substr(i), after.substr(i)));
    require(i < changedUpTo || before[i] == after[i], "only paths are changed");
  }
}

bool isJson(std::string_view text) {
  SeededRandom random;
  const auto decoded = decodeConfiguration(text, random);
  const auto* error = std::get_if<CodingError>(&decoded);
  return error == nullptr || !error->description.starts_with("not JSON");
}

void check(std::string_view bytes) {
  FakeFileSystem files;
  FakeUserDefaults defaults;
  const FakeProcessEnvironment environment;
  FakeLog log;
  files.put(kFormer, std::string(bytes));
  LegacyPieMenuMigration({files, defaults, environment, log}).run();

  require(files.files[kFormer] == bytes, "the former document stays");
  require(files.exists(kOwn) == isValidUtf8(bytes), "texts are carried over");
  require(files.exists(kOwn) == log.lines.empty(), "a document that is not copied is logged");
  if (!files.exists(kOwn)) return;
  const std::string& after = files.files[kOwn];
  requireOnlyPathsChanged(bytes, after);
  require(withOwnFaviconPaths(after, files.cachesFolder(), "PieMenu") == after, "a second rewrite changes nothing");
  require(isJson(after) == isJson(bytes), "JSON stays JSON");
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::check({reinterpret_cast<const char*>(data), size});
  return 0;
}

#include "platform/macos/conversions/application_bundles.h"

#include <system_error>

namespace rondora::macos {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxDepth = 3;

/// Links to bundles count, links to folders do not: they may lead anywhere.
void collect(const fs::path& path, int depth, std::vector<fs::path>& bundles) {
  if (path.filename().native().starts_with('.')) return;
  std::error_code error;
  if (path.extension() == kBundleEnding) {
    if (fs::is_directory(path, error)) bundles.push_back(path);
    return;
  }
  if (depth > kMaxDepth || !fs::is_directory(fs::symlink_status(path, error))) return;
  auto entry = fs::directory_iterator(path, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) collect(*entry, depth + 1, bundles);
}

}  // namespace

std::vector<fs::path> applicationBundles(const fs::path& folder) {
  std::vector<fs::path> bundles;
  collect(folder, 0, bundles);
  return bundles;
}

}  // namespace rondora::macos

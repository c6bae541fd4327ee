#include "storage/legacy_favicon_paths.h"

#include "base/program_identity.h"

namespace rondora {
namespace {

std::string replacingAll(std::string_view text, std::string_view pattern, std::string_view replacement) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t found = text.find(pattern); found != std::string_view::npos; found = text.find(pattern)) {
    result.append(text.substr(0, found)).append(replacement);
    text.remove_prefix(found + pattern.size());
  }
  return result.append(text);
}

std::string withEscapedSlashes(std::string_view path) { return replacingAll(path, "/", "\\/"); }

/// Without the leading slash, so that two occurrences cannot share one.
std::string faviconFolder(const std::filesystem::path& caches, std::string_view application) {
  return (caches / application / "favicons" / "").relative_path().string();
}

std::string withPathsBelow(const std::filesystem::path& caches, std::string_view document,
                           std::string_view predecessorFolder) {
  const std::string former = faviconFolder(caches, predecessorFolder);
  const std::string own = faviconFolder(caches, program_identity::kName);
  const std::string plain = replacingAll(document, former, own);
  return replacingAll(plain, withEscapedSlashes(former), withEscapedSlashes(own));
}

}  // namespace

std::string withOwnFaviconPaths(std::string_view document, const std::filesystem::path& caches,
                                std::string_view predecessorFolder) {
  return withPathsBelow(caches, withPathsBelow("Caches", document, predecessorFolder), predecessorFolder);
}

}  // namespace rondora

#include "platform/linux/desktop/url_handlers.h"

#include <algorithm>

#include "platform/linux/desktop/glib_owned.h"

namespace rondora::desktop {
namespace {

/// Lower case; empty when the text is not an absolute URL.
std::string schemeOf(const std::string& url) {
  // GLib 2.74 accepts blanks and control characters.
  const bool isClean = std::none_of(url.begin(), url.end(), [](char letter) {
    return static_cast<unsigned char>(letter) <= ' ' || letter == '\x7F';
  });
  if (!isClean || !g_uri_is_valid(url.c_str(), G_URI_FLAGS_NONE, nullptr)) return {};
  const GText scheme(g_uri_parse_scheme(url.c_str()));
  const GText lowered(scheme ? g_ascii_strdown(scheme.get(), -1) : nullptr);
  return lowered ? lowered.get() : "";
}

/// True when the desktop's file system layer can show such URLs, for example a network share.
bool isPlace(const std::string& scheme) {
  const char* const* schemes = g_vfs_get_supported_uri_schemes(g_vfs_get_default());
  return schemes && g_strv_contains(schemes, scheme.c_str());
}

}  // namespace

std::optional<std::string> UrlHandlers::handler(const std::string& url) const {
  const std::string scheme = schemeOf(url);
  if (scheme.empty()) return std::nullopt;
  return scheme == "file" ? handlerOfFile(url) : handlerOfScheme(scheme);
}

std::optional<std::string> UrlHandlers::handlerOfFile(const std::string& url) const {
  const GOwned<GFile> file(g_file_new_for_uri(url.c_str()));
  const GOwned<GFileInfo> info(
      g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE, G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  const char* type = info ? g_file_info_get_content_type(info.get()) : nullptr;
  if (!type) return std::nullopt;
  return defaults_.handlerOfType(type);
}

std::optional<std::string> UrlHandlers::handlerOfScheme(const std::string& scheme) const {
  if (auto id = defaults_.handlerOfType(("x-scheme-handler/" + scheme).c_str())) return id;
  if (scheme == "http" || scheme == "https") return defaults_.resolve("com.apple.Safari");
  if (isPlace(scheme)) return defaults_.resolve("com.apple.finder");
  return std::nullopt;
}

}  // namespace rondora::desktop

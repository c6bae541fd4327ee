#include "icons/icon_reference.h"

#include <utf8proc.h>

#include "base/unicode.h"
#include "icons/web_address.h"

namespace rondora {
namespace {

constexpr std::string_view kApplicationPrefix = "app:";
constexpr std::string_view kFaviconPrefix = "favicon:";
constexpr std::string_view kCombiningKeycap = "\xE2\x83\xA3";  // U+20E3, as in the keycap emoji of a digit

bool startsLikeEmoji(std::string_view text) {
  utf8proc_int32_t scalar = -1;
  utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                   &scalar);
  if (scalar < 0) return false;
  const auto boundary = utf8proc_get_property(scalar)->boundclass;
  return boundary == UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC || boundary == UTF8PROC_BOUNDCLASS_REGIONAL_INDICATOR;
}

IconKind kindOf(std::string_view icon) {
  if (icon.empty()) return IconKind::none;
  if (icon.front() == '/') return IconKind::imageFile;
  if (icon.starts_with(kApplicationPrefix) && icon.size() > kApplicationPrefix.size()) return IconKind::application;
  if (icon.starts_with(kFaviconPrefix)) return IconKind::favicon;
  const std::string_view first = firstCharacter(icon);
  if (startsLikeEmoji(first) || first.find(kCombiningKeycap) != std::string_view::npos) return IconKind::emoji;
  return IconKind::symbol;
}

/// Empty when the text names no web site.
std::string originOf(std::string_view addressOrHost) {
  const bool isHost = addressOrHost.find("://") == addressOrHost.npos;
  const auto address = WebAddress::parse((isHost ? "https://" : "") + std::string(addressOrHost));
  return address ? address->origin() : std::string();
}

}  // namespace

IconReference IconReference::parse(std::string_view icon) {
  const IconKind kind = kindOf(icon);
  if (kind == IconKind::application) icon.remove_prefix(kApplicationPrefix.size());
  if (kind == IconKind::emoji) icon = firstCharacter(icon);
  if (kind == IconKind::favicon) return {kind, originOf(icon.substr(kFaviconPrefix.size()))};
  return {kind, std::string(icon)};
}

IconReference IconReference::of(const PieMenuItem& item) {
  const auto* action = std::get_if<OpenURL>(&item.action);
  if (item.icon != kFaviconPrefix || action == nullptr) return parse(item.icon);
  const auto address = WebAddress::parse(action->url);
  return {IconKind::favicon, address ? address->origin() : std::string()};
}

std::string IconReference::application(std::string_view bundleIdentifier) {
  return std::string(kApplicationPrefix).append(bundleIdentifier);
}

}  // namespace rondora

#include "app/snippet_preview.h"

#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr std::size_t kMaxLength = 9600;  // bytes, more than the preview's lines can hold

/// Never splits a character.
std::string_view beginning(std::string_view text) {
  if (text.size() <= kMaxLength) return text;
  std::size_t length = kMaxLength;
  const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  while (length > 0 && isContinuation(text[length])) --length;
  return text.substr(0, length);
}

}  // namespace

std::optional<SnippetPreview> snippetPreview(std::string_view snippet, std::string hint) {
  const std::string_view text = trimmed(beginning(trimmed(snippet)));
  if (text.empty()) return std::nullopt;
  return SnippetPreview{.text = std::string(text), .hint = std::move(hint)};
}

}  // namespace rondora

#include "pie/picture/title_text.h"

#include <algorithm>
#include <cstddef>

namespace rondora {
namespace {

// Only ASCII separates: other scripts have neither camel case nor file names of another form.
bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }
bool isLetterOrDigit(char c) { return isUpper(c) || isLower(c) || (c >= '0' && c <= '9'); }
bool endsPart(char c) { return c == '/' || c == '\\' || c == '-' || c == '_'; }

/// Between the bytes before and after `at`, neither of which is a space.
bool isSoftBreak(std::string_view text, std::size_t at) {
  const char before = text[at - 1];
  const char after = text[at];
  if (after == '.') return before != '.' && !endsPart(before);
  if (endsPart(before)) return !endsPart(after);
  if (isLower(before)) return isUpper(after);
  return isUpper(before) && isUpper(after) && at + 1 < text.size() && isLower(text[at + 1]);  // HTML|Parser
}

}  // namespace

std::string withSoftBreaks(std::string_view title) {
  std::string broken;
  broken.reserve(title.size() + 16);
  for (std::size_t i = 0; i < title.size(); ++i) {
    const bool isInWord = i > 0 && title[i - 1] != ' ' && title[i] != ' ';
    if (isInWord && isSoftBreak(title, i)) broken += kSoftBreak;
    broken += title[i];
  }
  return broken;
}

TextElision elisionOf(std::string_view title) {
  constexpr std::size_t kMaxEnding = 5;
  const std::size_t dot = title.find_last_of('.');
  if (title.find('/') != std::string_view::npos) return TextElision::middle;
  if (dot == std::string_view::npos || dot == 0) return TextElision::end;
  const std::string_view ending = title.substr(dot + 1);
  const bool isName =
      !ending.empty() && ending.size() <= kMaxEnding && std::all_of(ending.begin(), ending.end(), isLetterOrDigit);
  return isName ? TextElision::middle : TextElision::end;
}

}  // namespace rondora

#include "base/unicode.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "base/owned.h"

namespace rondora {
namespace {

constexpr utf8proc_int32_t kReplacement = 0xFFFD;

struct Scalar {
  utf8proc_int32_t value = kReplacement;
  std::size_t length = 1;
  bool valid = false;
};

bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

char asciiLowerCased(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

bool isAsciiLetterOrDigit(char byte) {
  const char lower = asciiLowerCased(byte);
  return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9');
}

Scalar firstScalar(std::string_view text) {
  utf8proc_int32_t value = -1;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &value);
  if (length <= 0) return {};
  return {value, static_cast<std::size_t>(length), true};
}

Scalar lastScalar(std::string_view text) {
  for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length) {
    const Scalar scalar = firstScalar(text.substr(text.size() - length));
    if (scalar.valid && scalar.length == length) return scalar;
  }
  return {};
}

void append(std::string& text, utf8proc_int32_t scalar) {
  utf8proc_uint8_t bytes[4];
  const utf8proc_ssize_t length = utf8proc_encode_char(scalar, bytes);
  text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

/// Appends the full upper-case mapping: where a scalar folds to several, their capitals (SpecialCasing.txt agrees).
void appendUpperCased(std::string& text, utf8proc_int32_t scalar) {
  std::array<utf8proc_int32_t, 4> folded{};
  int lastBoundClass = 0;
  const utf8proc_ssize_t count =
      utf8proc_decompose_char(scalar, folded.data(), folded.size(), UTF8PROC_CASEFOLD, &lastBoundClass);
  const bool isCapital = utf8proc_category(scalar) == UTF8PROC_CATEGORY_LU;
  if (count < 2 || isCapital) return append(text, utf8proc_toupper(scalar));
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) append(text, utf8proc_toupper(folded.at(i)));
}

/// ASCII, nearly all of what is mapped, needs no table.
template <class MapAscii, class AppendMapped>
std::string mapped(std::string_view text, MapAscii mapAscii, AppendMapped appendMapped) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    if (isAscii(text.front())) {
      result += mapAscii(text.front());
      text.remove_prefix(1);
      continue;
    }
    const Scalar scalar = firstScalar(text);
    appendMapped(result, scalar.value);
    text.remove_prefix(scalar.length);
  }
  return result;
}

bool isWhiteSpaceOrNewline(const Scalar& scalar) {
  if (!scalar.valid) return false;
  if (scalar.value >= 0x09 && scalar.value <= 0x0D) return true;
  if (scalar.value == 0x85) return true;
  const utf8proc_category_t category = utf8proc_category(scalar.value);
  return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_ZL || category == UTF8PROC_CATEGORY_ZP;
}

// Format characters that change the direction of writing (Unicode Annex 9, 2.1 to 2.6).
bool changesDirection(utf8proc_int32_t scalar) {
  return scalar == 0x061C || scalar == 0x200E || scalar == 0x200F || (scalar >= 0x202A && scalar <= 0x202E) ||
         (scalar >= 0x2066 && scalar <= 0x2069);
}

bool isVisible(const Scalar& scalar) {
  if (!scalar.valid || changesDirection(scalar.value)) return false;
  const utf8proc_category_t category = utf8proc_category(scalar.value);
  return category != UTF8PROC_CATEGORY_CC && category != UTF8PROC_CATEGORY_ZL && category != UTF8PROC_CATEGORY_ZP;
}

/// Canonical combining classes of marks that make another letter: nukta, kana voicing, virama (UnicodeData.txt). Vowel
/// signs have class 0.
bool isAccent(utf8proc_int32_t scalar) {
  const auto combiningClass = utf8proc_get_property(scalar)->combining_class;
  return combiningClass > 9;
}

bool separatesWords(utf8proc_int32_t scalar) {
  const utf8proc_category_t category = utf8proc_category(scalar);
  const bool isPunctuation = category >= UTF8PROC_CATEGORY_PC && category <= UTF8PROC_CATEGORY_PO;
  return isPunctuation || category == UTF8PROC_CATEGORY_CN || category >= UTF8PROC_CATEGORY_ZS;
}

/// One space between words, none at the beginning of the key.
void separateWords(std::string& key, std::size_t begin) {
  if (key.size() > begin && key.back() != ' ') key += ' ';
}

std::string escape(const char* format, unsigned value) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

std::string escaped(const Scalar& scalar, char first) {
  if (scalar.valid && scalar.value > 0x7F) return escape("\\u%04X", static_cast<unsigned>(scalar.value));
  return escape("\\x%02X", static_cast<unsigned char>(first));
}

}  // namespace

bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const Scalar scalar = firstScalar(text);
    if (!scalar.valid) return false;
    text.remove_prefix(scalar.length);
  }
  return true;
}

std::string upperCased(std::string_view text) {
  const auto ascii = [](char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; };
  return mapped(text, ascii, appendUpperCased);
}

std::string lowerCased(std::string_view text) {
  return mapped(text, asciiLowerCased,
                [](std::string& result, utf8proc_int32_t scalar) { append(result, utf8proc_tolower(scalar)); });
}

std::string compatibilityFolded(std::string_view text) {
  constexpr auto kOptions =
      static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_COMPAT | UTF8PROC_IGNORE);
  utf8proc_uint8_t* bytes = nullptr;
  const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                   static_cast<utf8proc_ssize_t>(text.size()), &bytes, kOptions);
  if (length < 0) return {};
  const UniqueCPtr<utf8proc_uint8_t, std::free> owner(bytes);
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

void appendSearchKey(std::string& key, std::string_view text) {
  constexpr auto kOptions =
      static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD | UTF8PROC_IGNORE);
  constexpr std::size_t kLongestDecomposition = 18;  // of U+FDFA
  const std::size_t begin = key.size();
  std::array<utf8proc_int32_t, kLongestDecomposition> parts{};
  while (!text.empty()) {
    if (isAsciiLetterOrDigit(text.front())) {
      key += asciiLowerCased(text.front());
      text.remove_prefix(1);
      continue;
    }
    const Scalar scalar = firstScalar(text);
    text.remove_prefix(std::min(scalar.length, text.size()));
    int lastBoundClass = 0;
    const utf8proc_ssize_t count =
        utf8proc_decompose_char(scalar.value, parts.data(), parts.size(), kOptions, &lastBoundClass);
    for (std::size_t i = 0; i < std::min(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(count, 0)), parts.size());
         ++i) {
      const utf8proc_int32_t part = parts.at(i);
      if (separatesWords(part)) {
        separateWords(key, begin);
      } else if (!isAccent(part)) {
        append(key, part);
      }
    }
  }
  if (key.size() > begin && key.back() == ' ') key.pop_back();
}

std::string searchKey(std::string_view text) {
  std::string key;
  appendSearchKey(key, text);
  return key;
}

std::string controlsEscaped(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Scalar scalar = firstScalar(text);
    if (isVisible(scalar)) {
      result.append(text.substr(0, scalar.length));
    } else {
      result += scalar.value == '\n' ? " " : escaped(scalar, text.front());
    }
    text.remove_prefix(scalar.length);
  }
  return result;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty()) {
    const Scalar scalar = firstScalar(text);
    if (!isWhiteSpaceOrNewline(scalar)) break;
    text.remove_prefix(scalar.length);
  }
  while (!text.empty()) {
    const Scalar scalar = lastScalar(text);
    if (!isWhiteSpaceOrNewline(scalar)) break;
    text.remove_suffix(scalar.length);
  }
  return text;
}

bool hasRightToLeftLetter(std::string_view text) {
  while (!text.empty()) {
    const Scalar scalar = firstScalar(text);
    const auto direction = utf8proc_get_property(scalar.value)->bidi_class;
    if (direction == UTF8PROC_BIDI_CLASS_R || direction == UTF8PROC_BIDI_CLASS_AL) return true;
    text.remove_prefix(scalar.length);
  }
  return false;
}

std::size_t scalarCount(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    text.remove_prefix(firstScalar(text).length);
    ++count;
  }
  return count;
}

std::string_view firstCharacter(std::string_view text) {
  Scalar previous = firstScalar(text);
  std::size_t length = std::min(previous.length, text.size());
  utf8proc_int32_t state = 0;
  while (length < text.size()) {
    const Scalar next = firstScalar(text.substr(length));
    if (utf8proc_grapheme_break_stateful(previous.value, next.value, &state)) break;
    length += next.length;
    previous = next;
  }
  return text.substr(0, length);
}

std::string isolated(std::string_view text) {
  constexpr std::string_view kFirstStrongIsolate = "\u2068";
  constexpr std::string_view kPopDirectionalIsolate = "\u2069";
  return std::string(kFirstStrongIsolate).append(text).append(kPopDirectionalIsolate);
}

std::string shortened(std::string_view text, std::size_t maxCharacters) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < maxCharacters && length < text.size(); ++i) {
    length += firstCharacter(text.substr(length)).size();
  }
  return std::string(text.substr(0, length)) + (length < text.size() ? "…" : "");
}

}  // namespace rondora

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Unicode text as UTF-8. Ill-formed input never fails: each offending byte counts as U+FFFD.

namespace rondora {

bool isValidUtf8(std::string_view text);
/// Full mapping, independent of the language: "ß" becomes "SS". A text of up to 5 bytes allocates nothing.
std::string upperCased(std::string_view text);
/// Simple mapping: one scalar for each.
std::string lowerCased(std::string_view text);
/// Without white space and line ends at either end.
std::string_view trimmed(std::string_view text);
/// Has a letter of a script that is written from right to left.
bool hasRightToLeftLetter(std::string_view text);
std::size_t scalarCount(std::string_view text);
/// The first character as a reader sees it: with its accents, or a whole emoji sequence (Unicode Annex 29, extended
/// grapheme clusters). Empty for an empty text.
std::string_view firstCharacter(std::string_view text);

}  // namespace rondora

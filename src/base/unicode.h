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
/// Replaces characters by those that they stand for and removes invisible ones (NFKC): "①" becomes "1". Empty for
/// ill-formed text.
std::string compatibilityFolded(std::string_view text);
/// The words of a text as they are compared in a search, separated by single spaces: without case, accents,
/// punctuation and invisible characters. Letters that an Indian vowel sign or a Japanese voicing mark changes stay
/// different.
std::string searchKey(std::string_view text);
void appendSearchKey(std::string& key, std::string_view text);
/// One line of visible text: a line end becomes a space; other control characters, line separators, characters that
/// change the direction of writing, and ill-formed bytes become escapes such as "\\x1B" and "\\u202E".
std::string controlsEscaped(std::string_view text);
/// Removes white space and line ends at both ends.
std::string_view trimmed(std::string_view text);
/// Contains a letter of a right-to-left script.
bool hasRightToLeftLetter(std::string_view text);
std::size_t scalarCount(std::string_view text);
/// The first extended grapheme cluster (Unicode Annex 29), such as a letter with its accents or an emoji
/// sequence. Empty for an empty text.
std::string_view firstCharacter(std::string_view text);

/// The text between characters that let it keep its own direction inside another text.
std::string isolated(std::string_view text);
/// The text, or its beginning of that many characters with an ellipsis behind it.
std::string shortened(std::string_view text, std::size_t maxCharacters);

}  // namespace rondora

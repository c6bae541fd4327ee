#include "base/word_query.h"

#include <algorithm>
#include <cstddef>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Begins with a Chinese or Japanese character: in UTF-8, U+2E80 to U+9FFF and U+F900 to U+FAFF are three bytes, the
/// ideographs beyond U+20000 four.
bool isUnseparated(std::string_view word) {
  const std::string_view first = word.substr(0, 4);
  return (first >= "\u2E80" && first < "\uA000") || (first >= "\uF900" && first < "\uFB00") ||
         (first >= "\U00020000" && first < "\U00040000");
}

}  // namespace

WordQuery::WordQuery(std::string_view query, Match match) : key_(searchKey(query)) {
  for (std::size_t begin = 0; begin < key_.size();) {
    const std::size_t end = std::min(key_.find(' ', begin), key_.size());
    std::string word = key_.substr(begin, end - begin);
    const bool anywhere = match == Match::anywhere || isUnseparated(word);
    words_.push_back({std::move(word), anywhere});
    begin = end + 1;
  }
}

bool WordQuery::isIn(std::string_view key, const Word& word) {
  for (auto at = key.find(word.text); at != std::string_view::npos; at = key.find(word.text, at + 1)) {
    if (word.anywhere || at == 0 || key[at - 1] == ' ') return true;
  }
  return false;
}

bool WordQuery::finds(std::initializer_list<std::string_view> keys) const {
  return std::all_of(words_.begin(), words_.end(), [&](const Word& word) {
    return std::any_of(keys.begin(), keys.end(), [&](std::string_view key) { return isIn(key, word); });
  });
}

}  // namespace rondora

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// What the user searches for. A text is found when each word of the query begins one of its words; in Chinese and
/// Japanese, whose words are not separated, and with `Match::anywhere`, when it contains them.
class WordQuery {
 public:
  /// Where a word of the query has to be.
  enum class Match { wordBegin, anywhere };

  explicit WordQuery(std::string_view query, Match match = Match::wordBegin);

  bool isEmpty() const { return words_.empty(); }
  /// The query as `searchKey` makes it.
  const std::string& key() const { return key_; }
  /// Each word is in one of the texts, which `searchKey` made. Allocates nothing.
  bool finds(std::initializer_list<std::string_view> keys) const;

 private:
  struct Word {
    std::string text;
    bool anywhere = false;
  };
  static bool isIn(std::string_view key, const Word& word);

  std::string key_;
  std::vector<Word> words_;
};

}  // namespace rondora

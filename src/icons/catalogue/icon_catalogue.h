#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/word_query.h"
#include "model/app_language.h"

namespace rondora {

/// Reads a part of the catalogue's data, as `cmake/icon_names.py` makes it: "icons", or the code of a language. Empty
/// when there is none.
using ReadIconNames = std::function<std::string(std::string_view part)>;

/// The symbols and emoji to choose from, with their names in one language, in sections. English names and keywords are
/// searched beside those of the language. About 1 MB; made when it is needed and not kept.
class IconCatalogue {
 public:
  struct Section {
    std::string_view key;
    std::string_view title;
    /// The places of its icons: from `begin` to before `end`.
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  /// Of the symbols; all others are sections of emoji.
  static constexpr std::string_view kSymbolsKey = "symbols";

  IconCatalogue(const ReadIconNames& read, AppLanguage language);
  // The views refer to the object's own texts.
  IconCatalogue(const IconCatalogue&) = delete;
  IconCatalogue& operator=(const IconCatalogue&) = delete;

  const std::vector<Section>& sections() const { return sections_; }
  std::size_t size() const { return entries_.size(); }
  /// The `icon` text of an item.
  std::string_view icon(std::size_t place) const { return entries_.at(place).icon; }
  std::string_view name(std::size_t place) const { return entries_.at(place).name; }
  /// The place of an icon; `size()` when the catalogue does not list it.
  std::size_t find(std::string_view icon) const;

  /// The places of the icons found: first those of that name, then those found by their names, then by keywords, last
  /// by English. Each group keeps the order of the catalogue.
  std::vector<std::size_t> search(const WordQuery& query) const;

 private:
  struct Entry {
    std::string_view icon;
    std::string_view name;
    // Search keys.
    std::string_view nameKey;
    std::string_view keywordsKey;
    std::string_view englishKey;
  };
  enum class Match { sameName, name, keywords, english, none };

  void makeKeys(std::string_view englishLines);
  static Match match(const Entry& entry, const WordQuery& query);

  std::string icons_;
  std::string names_;
  std::string keys_;
  std::vector<Section> sections_;
  std::vector<Entry> entries_;
};

}  // namespace rondora

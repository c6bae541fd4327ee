#include "icons/catalogue/icon_catalogue.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr char kEndOfName = '\t';

std::string_view takeLine(std::string_view& lines) {
  const std::string_view line = lines.substr(0, lines.find('\n'));
  lines.remove_prefix(std::min(line.size() + 1, lines.size()));
  return line;
}

std::pair<std::string_view, std::string_view> nameAndKeywords(std::string_view line) {
  const std::size_t end = std::min(line.find(kEndOfName), line.size());
  return {line.substr(0, end), line.substr(std::min(end + 1, line.size()))};
}

}  // namespace

IconCatalogue::IconCatalogue(const ReadIconNames& read, AppLanguage language)
    : icons_(read("icons")), names_(read(rawValue(language))) {
  const bool isEnglish = language == AppLanguage::english;
  const std::string english = isEnglish ? std::string() : read(rawValue(AppLanguage::english));
  std::string_view icons = icons_;
  std::string_view names = names_;
  while (!icons.empty()) {
    const std::string_view icon = takeLine(icons);
    const std::string_view line = takeLine(names);
    if (icon.starts_with('\t')) {
      sections_.push_back({icon.substr(1), line, entries_.size(), entries_.size()});
    } else if (!sections_.empty()) {
      entries_.push_back({.icon = icon, .name = line, .nameKey = {}, .keywordsKey = {}, .englishKey = {}});
      sections_.back().end = entries_.size();
    }
  }
  makeKeys(english);
}

/// The keys are one text, which views may refer to once it is complete.
void IconCatalogue::makeKeys(std::string_view englishLines) {
  using Ends = std::array<std::size_t, 3>;
  std::vector<Ends> ends;
  ends.reserve(entries_.size());
  keys_.reserve(names_.size() + englishLines.size());
  std::size_t place = 0;
  for (const Section& section : sections_) {
    takeLine(englishLines);
    for (; place < section.end; ++place) {
      const auto [name, keywords] = nameAndKeywords(entries_[place].name);
      const auto english = takeLine(englishLines);
      entries_[place].name = name;
      Ends& end = ends.emplace_back();
      appendSearchKey(keys_, name);
      end[0] = keys_.size();
      appendSearchKey(keys_, keywords);
      end[1] = keys_.size();
      appendSearchKey(keys_, english);
      end[2] = keys_.size();
    }
  }
  std::size_t begin = 0;
  const std::string_view keys = keys_;
  for (place = 0; place < entries_.size(); ++place) {
    const Ends& end = ends[place];
    entries_[place].nameKey = keys.substr(begin, end[0] - begin);
    entries_[place].keywordsKey = keys.substr(end[0], end[1] - end[0]);
    entries_[place].englishKey = keys.substr(end[1], end[2] - end[1]);
    begin = end[2];
  }
}

std::size_t IconCatalogue::find(std::string_view icon) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.icon == icon; });
  return static_cast<std::size_t>(found - entries_.begin());
}

IconCatalogue::Match IconCatalogue::match(const Entry& entry, const WordQuery& query) {
  if (query.finds({entry.nameKey})) return entry.nameKey == query.key() ? Match::sameName : Match::name;
  if (query.finds({entry.nameKey, entry.keywordsKey})) return Match::keywords;
  return query.finds({entry.nameKey, entry.keywordsKey, entry.englishKey}) ? Match::english : Match::none;
}

std::vector<std::size_t> IconCatalogue::search(const WordQuery& query) const {
  std::array<std::vector<std::size_t>, static_cast<std::size_t>(Match::none)> found;
  for (std::size_t place = 0; place < entries_.size(); ++place) {
    const Match how = match(entries_[place], query);
    if (how != Match::none) found.at(static_cast<std::size_t>(how)).push_back(place);
  }
  std::vector<std::size_t> places;
  for (const auto& group : found) places.insert(places.end(), group.begin(), group.end());
  return places;
}

}  // namespace rondora

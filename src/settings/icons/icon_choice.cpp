#include "settings/icons/icon_choice.h"

#include <algorithm>
#include <utility>

#include "base/unicode.h"
#include "model/symbol_name.h"

namespace rondora {
namespace {

constexpr std::string_view kRecentSymbol = "clock.fill";
constexpr std::string_view kImageSymbol = "photo.fill";
constexpr std::string_view kNoneSymbol = "xmark";
constexpr std::string_view kSitePicture = "favicon:";

/// Icons that stand for a section better than its first one.
constexpr std::pair<std::string_view, std::string_view> kSectionIcons[] = {{"emoji_travel_places", "🚗"},
                                                                           {"emoji_activities", "⚽"},
                                                                           {"emoji_objects", "💡"},
                                                                           {"emoji_symbols", "🔣"},
                                                                           {"emoji_flags", "🏳️"}};

std::string_view iconOf(const IconCatalogue::Section& section, const IconCatalogue& catalogue) {
  for (const auto& [key, icon] : kSectionIcons) {
    if (key == section.key) return icon;
  }
  return section.begin < section.end ? catalogue.icon(section.begin) : std::string_view();
}

IconReference symbol(std::string_view name) { return {IconKind::symbol, std::string(name)}; }

}  // namespace

IconChoice::IconChoice(const LocalizationStore& localization, const ReadIconNames& read, RecentIcons& recent,
                       PieMenuItem item)
    : localization_(localization),
      recent_(recent),
      item_(std::move(item)),
      catalogue_(read, localization.language()),
      hasRecent_(!recent.icons().empty()) {
  listSections();
  showSection(sectionOf(item_.icon));
}

void IconChoice::listSections() {
  if (hasRecent_) {
    sections_.push_back({std::string(localization_.text(StringKey::iconPickerRecent)), symbol(kRecentSymbol)});
  }
  for (const IconCatalogue::Section& section : catalogue_.sections()) {
    const bool areSymbols = section.key == IconCatalogue::kSymbolsKey;
    const std::string_view title = areSymbols ? localization_.text(StringKey::iconPickerSymbols) : section.title;
    sections_.push_back({std::string(title), IconReference::parse(iconOf(section, catalogue_))});
  }
}

/// That of an icon which is not listed is the one of the symbols, behind the recent ones.
std::size_t IconChoice::sectionOf(std::string_view icon) const {
  const std::size_t place = catalogue_.find(icon);
  const auto& sections = catalogue_.sections();
  const auto found =
      std::find_if(sections.begin(), sections.end(), [&](const auto& s) { return place >= s.begin && place < s.end; });
  const auto behindRecent = static_cast<std::size_t>(hasRecent_);
  return behindRecent + (found == sections.end() ? 0 : static_cast<std::size_t>(found - sections.begin()));
}

void IconChoice::showSection(std::size_t section) {
  isSearching_ = false;
  section_ = section;
  if (hasRecent_ && section == 0) return showRecent();
  const std::size_t index = section - static_cast<std::size_t>(hasRecent_);
  if (index >= catalogue_.sections().size()) return cells_.clear();
  show(catalogue_.sections()[index].begin, catalogue_.sections()[index].end);
}

void IconChoice::show(std::size_t begin, std::size_t end) {
  cells_.clear();
  for (std::size_t place = begin; place < end; ++place) cells_.push_back(cellAt(place));
}

void IconChoice::showRecent() {
  cells_.clear();
  for (const std::string& icon : recent_.icons()) cells_.push_back(cellOf(icon));
}

IconChoice::Cell IconChoice::cellAt(std::size_t place) const {
  return {std::string(catalogue_.icon(place)), std::string(catalogue_.name(place))};
}

IconChoice::Cell IconChoice::cellOf(const std::string& icon) const {
  const std::size_t place = catalogue_.find(icon);
  return place < catalogue_.size() ? cellAt(place) : Cell{icon, icon};
}

void IconChoice::search(std::string_view query) {
  const auto emoji = IconReference::parse(trimmed(query));
  const WordQuery words(query);
  if (emoji.kind == IconKind::emoji) {
    isSearching_ = true;
    cells_ = {cellOf(emoji.name)};
  } else if (words.isEmpty()) {
    showSection(section_);
  } else {
    isSearching_ = true;
    cells_.clear();
    for (const std::size_t place : catalogue_.search(words)) cells_.push_back(cellAt(place));
  }
}

std::optional<std::size_t> IconChoice::startingCell() const {
  if (isSearching_) return cells_.empty() ? std::nullopt : std::optional<std::size_t>(0);
  const auto found = std::find_if(cells_.begin(), cells_.end(), [&](const Cell& c) { return c.icon == item_.icon; });
  if (found == cells_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - cells_.begin());
}

std::string IconChoice::heading() const {
  if (isSearching_) return std::string(localization_.text(StringKey::iconPickerFound));
  return section_ < sections_.size() ? sections_[section_].title : std::string();
}

std::string IconChoice::note() const {
  if (!isSearching_ || !cells_.empty()) return {};
  return std::string(localization_.text(StringKey::iconPickerNothingFound));
}

std::vector<IconChoice::Other> IconChoice::others() const {
  using Kind = Other::Kind;
  std::vector<Other> others;
  const auto add = [&](Kind kind, StringKey title, IconReference picture, std::optional<std::string> icon) {
    others.push_back({kind, std::string(localization_.text(title)), std::move(picture), std::move(icon)});
  };
  if (const auto* launch = std::get_if<LaunchApp>(&item_.action);
      launch != nullptr && !launch->bundleIdentifier.empty()) {
    const std::string icon = IconReference::application(launch->bundleIdentifier);
    add(Kind::ownApplication, StringKey::iconPickerOwnApplication, IconReference::parse(icon), icon);
  }
  PieMenuItem withSitePicture = item_;
  withSitePicture.icon = kSitePicture;
  if (const auto site = IconReference::of(withSitePicture); !site.name.empty()) {
    add(Kind::site, StringKey::iconPickerSite, site, withSitePicture.icon);
  }
  add(Kind::application, StringKey::iconPickerApplication, symbol(kApplicationSymbolName), std::nullopt);
  add(Kind::imageFile, StringKey::iconPickerImageFile, symbol(kImageSymbol), std::nullopt);
  add(Kind::none, StringKey::iconPickerNone, symbol(kNoneSymbol), std::string());
  return others;
}

}  // namespace rondora

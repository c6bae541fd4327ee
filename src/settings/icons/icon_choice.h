#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "icons/catalogue/icon_catalogue.h"
#include "icons/icon_reference.h"
#include "localization/localization_store.h"
#include "model/pie_menu_item.h"
#include "settings/icons/recent_icons.h"

namespace rondora {

/// What can be chosen as an item's icon: symbols and emoji in sections, those that a search finds, and icons from
/// elsewhere. Holds the names of all icons, so it lives only as long as the user chooses.
class IconChoice {
 public:
  struct Section {
    std::string title;
    /// An icon that stands for the section.
    IconReference picture;
  };
  struct Cell {
    std::string icon;
    std::string name;
    friend bool operator==(const Cell&, const Cell&) = default;
  };
  /// An icon that is neither symbol nor emoji.
  struct Other {
    enum class Kind { ownApplication, site, application, imageFile, none };
    Kind kind = Kind::none;
    std::string title;
    IconReference picture;
    /// The item's `icon` text; of an application or image file the user is yet to choose which.
    std::optional<std::string> icon;
  };

  /// `localization` and `recent` must outlive the object.
  IconChoice(const LocalizationStore& localization, const ReadIconNames& read, RecentIcons& recent, PieMenuItem item);

  const LocalizationStore& texts() const { return localization_; }
  /// At first the section that holds the item's present icon is shown.
  const std::vector<Section>& sections() const { return sections_; }
  std::size_t section() const { return section_; }
  /// Ends a search.
  void showSection(std::size_t section);
  /// Shows what is found in all sections; an empty query the section again. An emoji finds itself, in any variation.
  void search(std::string_view query);
  bool isSearching() const { return isSearching_; }

  const std::vector<Cell>& cells() const { return cells_; }
  /// The cell to begin with: that of the present icon, or the first one found.
  std::optional<std::size_t> startingCell() const;
  std::string heading() const;
  /// Why there are no cells; empty when there are some.
  std::string note() const;
  std::vector<Other> others() const;

  /// The user has chosen this symbol or emoji.
  void chose(const Cell& cell) { recent_.add(cell.icon); }

 private:
  void listSections();
  void show(std::size_t begin, std::size_t end);
  void showRecent();
  Cell cellAt(std::size_t place) const;
  Cell cellOf(const std::string& icon) const;
  std::size_t sectionOf(std::string_view icon) const;

  const LocalizationStore& localization_;
  RecentIcons& recent_;
  PieMenuItem item_;
  IconCatalogue catalogue_;
  std::vector<Section> sections_;
  std::size_t section_ = 0;
  bool hasRecent_ = false;
  bool isSearching_ = false;
  std::vector<Cell> cells_;
};

}  // namespace rondora

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "model/pie_configuration.h"
#include "platform/random_source.h"

namespace rondora {

/// Edits of the document's list of menus. Each returns nothing or false, and changes nothing, when there is no such
/// menu or the menu may not be edited so: the menus of running applications and of application commands exist exactly
/// once.
struct MenuEdits {
  /// Adds an empty menu that looks like the first one, behind the last standard menu.
  static Uuid add(PieConfiguration& document, std::string name, RandomSource& random);
  /// Adds a copy behind the menu, without its triggers, which belong to one menu.
  static std::optional<Uuid> duplicate(PieConfiguration& document, const Uuid& menu, std::string name,
                                       RandomSource& random);
  static bool rename(PieConfiguration& document, const Uuid& menu, std::string name);
  /// Moves the menu to that place in the list, or to its end.
  static bool move(PieConfiguration& document, const Uuid& menu, std::size_t place);
  static bool remove(PieConfiguration& document, const Uuid& menu);
  /// Gives all menus the appearance that menus share.
  static bool copyAppearanceToAll(PieConfiguration& document, const Uuid& menu);
};

/// Edits of the items of a menu; places are those in the ring, from which the items are numbered anew. The
/// rotation is snapped when their number changes. Each returns false, and changes nothing, when there is no such item.
struct ItemEdits {
  /// An item without an action, with a symbol that the menu does not show yet.
  static PieMenuItem make(const PieMenu& menu, RandomSource& random);
  /// Inserts the item under an id of its own, at that place or at the end.
  static Uuid insert(PieMenu& menu, std::size_t place, PieMenuItem item, RandomSource& random);
  static bool replace(PieMenu& menu, const PieMenuItem& item);
  static bool move(PieMenu& menu, const Uuid& item, std::size_t place);
  static bool remove(PieMenu& menu, const Uuid& item);
  /// Another item of the menu that has this quick-select label of its own; null when there is none.
  static const PieMenuItem* withLabel(const PieMenu& menu, std::string_view label, const Uuid& except);
};

}  // namespace rondora

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "input/hotkeys/hotkey_display.h"
#include "localization/localization_store.h"
#include "model/pie_configuration.h"

namespace rondora {

/// What becomes different in a document, in the user's language.
struct DocumentChange {
  enum class Kind { added, removed, changed };

  Kind kind = Kind::changed;
  std::string text;
  /// Of a menu: what changes in it.
  std::vector<DocumentChange> parts = {};
  friend bool operator==(const DocumentChange&, const DocumentChange&) = default;
};
using DocumentChanges = std::vector<DocumentChange>;

/// How changes are told. The store must outlive the object.
struct ChangeWords {
  const LocalizationStore& localization;
  ModifierNames modifierNames;
  /// What the ring calls an item; its own title where this is empty.
  std::function<std::string(const PieMenuItem&)> itemTitle = {};
  /// The name of an application by its identifier, which stands for it where this is empty or returns nothing.
  std::function<std::optional<std::string>(std::string_view)> applicationName = {};
};

/// In a list that is longer than this the last line counts the rest.
inline constexpr std::size_t kMaxChanges = 60;

/// What a user would notice when `after` takes the place of `before`. A menu or item that has another identifier but
/// the same name counts as the same: documents of two machines share no identifiers. Empty for documents that differ
/// only in such and in their stamps.
DocumentChanges documentChanges(const PieConfiguration& before, const PieConfiguration& after,
                                const ChangeWords& words);

}  // namespace rondora

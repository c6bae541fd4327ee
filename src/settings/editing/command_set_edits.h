#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/pie_configuration.h"
#include "platform/random_source.h"

namespace rondora {

/// Edits of the sets of commands that the menu of application commands offers. A set is named by the identifier of its
/// application; "" is the default set, which all other applications use. Each edit returns false or nothing, and
/// changes nothing, when there is no such set or entry. When the number of entries changes, the ring's rotation snaps.
struct CommandSetEdits {
  static bool has(const PieConfiguration& document, std::string_view application);
  static std::vector<AppSubMenuEntry> entries(const PieConfiguration& document, std::string_view application);
  /// That of the ring which shows the set.
  static double rotationDegrees(const PieConfiguration& document, std::string_view application);

  /// The set begins as a copy of the default one, with its rotation: the application's ring stays as it was until the
  /// user changes it. False when the application has a set.
  static bool add(PieConfiguration& document, std::string_view application, RandomSource& random);
  /// The application uses the default set again, which itself cannot be removed.
  static bool remove(PieConfiguration& document, std::string_view application);

  /// Inserts the entry under an id of its own, at that place or at the end. Nothing when the set has the command.
  static std::optional<Uuid> insert(PieConfiguration& document, std::string_view application, std::size_t place,
                                    AppSubMenuEntry entry, RandomSource& random);
  static bool replace(PieConfiguration& document, std::string_view application, const AppSubMenuEntry& entry);
  /// The commands of the set are these from now on. One that the set has already keeps its id and icon.
  static bool replaceAll(PieConfiguration& document, std::string_view application, std::vector<AppSubMenuEntry> entries,
                         RandomSource& random);
  static bool move(PieConfiguration& document, std::string_view application, const Uuid& entry, std::size_t place);
  /// The last entry of the default set stays: a document without any gets the built-in ones.
  static bool removeEntry(PieConfiguration& document, std::string_view application, const Uuid& entry);
  /// "" gives the entry the icon that it has by itself.
  static bool setIcon(PieConfiguration& document, std::string_view application, const Uuid& entry, std::string icon);
  /// Gives the default set the built-in commands, and the ring the rotation that fits them.
  static void resetDefaults(PieConfiguration& document, RandomSource& random);
  /// Snaps.
  static bool setRotationDegrees(PieConfiguration& document, std::string_view application, double degrees);
};

}  // namespace rondora

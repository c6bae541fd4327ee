#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "storage/kept_documents.h"

namespace rondora {

/// The names of the files that hold kept documents, such as "config.broken-2026-11-14T211548-2.json". The stamp is in
/// UTC.
struct KeptFileName {
  KeptDocument::Cause cause = KeptDocument::Cause::unreadable;
  WallTime time = 0;

  /// `number` tells documents of one second apart; the first has none.
  std::string text(int number = 1) const;
  static std::optional<KeptFileName> parse(std::string_view name);
};

}  // namespace rondora

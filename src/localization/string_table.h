#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "localization/string_key.h"
#include "model/app_language.h"

namespace rondora {

/// The texts of one language, by key. UTF-8.
using StringTable = std::array<std::string_view, kStringKeyCount>;

struct StringEntry {
  StringKey key;
  std::string_view text;
};

/// For constant tables: a missing, empty or repeated key does not compile.
constexpr StringTable completeTable(const StringEntry (&entries)[kStringKeyCount]) {
  StringTable table{};
  for (const auto& entry : entries) {
    auto& text = table[static_cast<std::size_t>(entry.key)];
    if (entry.text.empty() || !text.empty()) throw std::logic_error("string table: empty or repeated");
    text = entry.text;
  }
  return table;
}

const StringTable& stringTable(AppLanguage language);

}  // namespace rondora

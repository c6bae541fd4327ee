#include <gmock/gmock.h>

#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

namespace rondora {
namespace {

using nlohmann::ordered_json;
using namespace std::string_view_literals;

std::string encoded(const PieConfiguration& configuration) {
  return std::get<std::string>(encodeConfiguration(configuration));
}

ordered_json awkward(const ordered_json& value, RandomSource& random) {
  static constexpr std::array kTexts{""sv, " "sv, "\"\\/"sv, "\n\x01\x7F"sv, "\u0301é\u202E🐈"sv, "{}"sv, "a\0b"sv};
  static constexpr std::array kDoubles{0.1, -0.0, 5e-324, 1e300, -1 / 3.0, 4e15 + 0.5};
  using Integers = std::numeric_limits<std::int64_t>;
  static constexpr std::array kIntegers{std::int64_t{-1}, std::int64_t{3}, Integers::min(), Integers::max()};
  if (value.is_string()) return kTexts.at(random.below(kTexts.size()));
  if (value.is_number_integer()) return kIntegers.at(random.below(kIntegers.size()));
  if (value.is_number()) return kDoubles.at(random.below(kDoubles.size()));
  return value.is_boolean() ? ordered_json(!value.get<bool>()) : value;
}

/// The document that has every field, here and there with a value that is awkward and may well stand there.
std::string awkwardDocument(RandomSource& random) {
  static const std::set<std::string> kNotFree = {"id", "kind", "variant", "language", "_0", "keyCode", "sectorIndex"};
  std::ifstream file(RONDORA_FIXTURES "/config/good-every-field.json");
  ordered_json document = ordered_json::parse(file);
  const ordered_json leaves = document.flatten();
  for (const auto& [place, value] : leaves.items()) {
    const ordered_json::json_pointer pointer(place);
    if (random.below(4) == 0 && !kNotFree.contains(pointer.back())) document[pointer] = awkward(value, random);
  }
  return document.dump();
}

/// Replaces, drops or doubles a stretch of the text.
void damage(std::string& text, RandomSource& random) {
  static constexpr std::string_view kPieces[] = {"null", "0",  "-1", "1e400", "\"\"", "[]", "{}",
                                                 "true", "\"", ",",  "5",     "3.5",  "\\", "\xC3"};
  const auto from = random.below(text.size());
  const auto length = random.below(std::min<std::uint64_t>(text.size() - from, 12) + 1);
  std::string piece(kPieces[random.below(std::size(kPieces))]);
  if (random.below(3) == 0) piece = text.substr(from, length) + text.substr(from, length);
  text.replace(from, length, piece);
}

TEST(RoundTripTest, WhateverIsReadIsWrittenAndReadBackEqual) {
  int readable = 0;
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    SeededRandom random(seed);
    std::string text = awkwardDocument(random);
    if (random.below(3) == 0) damage(text, random);
    const auto first = decodeConfiguration(text, random);
    if (std::holds_alternative<CodingError>(first)) continue;
    ++readable;
    const std::string written = encoded(std::get<PieConfiguration>(first));
    const auto second = decodeConfiguration(written, random);
    ASSERT_TRUE(std::holds_alternative<PieConfiguration>(second)) << std::get<CodingError>(second).description;
    ASSERT_EQ(std::get<PieConfiguration>(second), std::get<PieConfiguration>(first));
    ASSERT_EQ(encoded(std::get<PieConfiguration>(second)), written);
  }
  EXPECT_GT(readable, 100);
}

TEST(RoundTripTest, TheFirstRunDocumentStaysAsItIsButForItsSidebarColor) {
  SeededRandom random;
  PieConfiguration document = PieConfiguration::defaultConfig(random);
  const auto decoded = decodeConfiguration(encoded(document), random);
  document.menus[0].globalSidebarIconColorHex = "#007AFF";
  EXPECT_EQ(std::get<PieConfiguration>(decoded), document);
}

}  // namespace
}  // namespace rondora

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

// Documents in fixtures/config:
// - broken.txt: documents that do not decode, each with the description of the error;
// - repaired.txt: documents that decode, each with the values of its re-encoding at JSON pointers, as "POINTER =
// VALUE", "POINTER size COUNT" or "POINTER absent";
// - good-NAME.json: re-encodes to itself;
// - first-run.json: the first-run document without the ids of its menus, items and entries.
// A line "# NAME" begins a document, a line "=> " an expectation. `completed` adds the required members that the
// document and its menus leave out, except where "<absent>" stands; after "raw" the document is used unchanged.

namespace rondora {
namespace {

using nlohmann::ordered_json;
using namespace std::string_view_literals;

struct Document {
  std::string name;
  std::string bytes;
  std::vector<std::string> expected;
};

void complete(ordered_json& object, const ordered_json& defaults) {
  if (!object.is_object()) return;
  for (const auto& [key, value] : defaults.items()) {
    if (!object.contains(key)) object[key] = value;
    if (object[key] == "<absent>") object.erase(key);
  }
}

std::string completed(const std::string& text) {
  if (text.starts_with("raw ")) return text.substr(4);
  ordered_json document = ordered_json::parse(text);
  complete(document, {{"schemaVersion", 3}});
  char lastDigit = '9';
  if (!document.contains("menus")) return document.dump();
  for (ordered_json& menu : document["menus"]) {
    complete(menu, {{"id", std::string("7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0") + lastDigit--},
                    {"name", "Main"},
                    {"hotkey", {{"keyCode", 49}, {"carbonModifiers", 6144}}},
                    {"items", ordered_json::array()},
                    {"menuRadius", 150},
                    {"animationDuration", 0.2}});
  }
  return document.dump();
}

std::string fixture(const std::string& name) {
  std::ifstream stream(RONDORA_FIXTURES "/config/" + name, std::ios::binary);
  EXPECT_TRUE(stream) << name;
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<Document> documents(const std::string& file) {
  std::vector<Document> result;
  std::istringstream stream(fixture(file));
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("# ")) {
      result.push_back({line.substr(2), {}, {}});
    } else if (line.starts_with("=> ")) {
      result.back().expected.push_back(line.substr(3));
    } else {
      result.back().bytes += line;
    }
  }
  for (Document& document : result) document.bytes = completed(document.bytes);
  return result;
}

std::string encoded(const PieConfiguration& configuration) {
  return std::get<std::string>(encodeConfiguration(configuration));
}

std::string reencoded(std::string_view bytes) {
  SeededRandom random;
  const auto decoded = decodeConfiguration(bytes, random);
  if (const auto* error = std::get_if<CodingError>(&decoded)) return "error: " + error->description;
  return encoded(std::get<PieConfiguration>(decoded));
}

void expectAtPointer(const ordered_json& document, const std::string& line) {
  std::istringstream words(line);
  std::string place;
  std::string relation;
  words >> place >> relation;
  const ordered_json::json_pointer pointer(place);
  ASSERT_EQ(document.contains(pointer), relation != "absent");
  if (relation == "absent") return;
  const ordered_json expected = ordered_json::parse(words, nullptr, false);
  EXPECT_EQ(relation == "size" ? ordered_json(document.at(pointer).size()) : document.at(pointer), expected);
}

TEST(ConfigurationFixtures, BrokenDocumentsReportThePathOfTheError) {
  for (const Document& document : documents("broken.txt")) {
    ASSERT_EQ(document.expected.size(), 1U) << document.name;
    EXPECT_EQ(reencoded(document.bytes), "error: " + document.expected.front()) << document.name;
  }
}

TEST(ConfigurationFixtures, DamagedDocumentsAreRepaired) {
  for (const Document& document : documents("repaired.txt")) {
    const ordered_json result = ordered_json::parse(reencoded(document.bytes), nullptr, false);
    ASSERT_TRUE(result.is_object()) << document.name << ": " << reencoded(document.bytes);
    ASSERT_FALSE(document.expected.empty()) << document.name;
    for (const std::string& line : document.expected) {
      SCOPED_TRACE(document.name + ": " + line);
      expectAtPointer(result, line);
    }
  }
}

TEST(ConfigurationFixtures, GoodDocumentsRoundTrip) {
  const std::string smallest = fixture("good-smallest.json");
  EXPECT_EQ(reencoded(smallest) + "\n", smallest);
  const std::string full = fixture("good-every-field.json");
  EXPECT_EQ(ordered_json::parse(reencoded(full)).dump(1), ordered_json::parse(full).dump(1));
}

TEST(ConfigurationFixtures, FirstRunDocumentDiffersInItsIdsOnly) {
  const ordered_json expected = ordered_json::parse(fixture("first-run.json")).flatten();
  SeededRandom random;
  std::set<std::string> ids;
  for (int i = 0; i < 2; ++i) {
    const ordered_json all = ordered_json::parse(encoded(PieConfiguration::defaultConfig(random))).flatten();
    ordered_json others;
    for (const auto& [place, value] : all.items()) {
      if (!place.ends_with("/id")) {
        others[place] = value;
      } else {
        EXPECT_TRUE(ids.insert(value.get<std::string>()).second) << place;
      }
    }
    EXPECT_EQ(others.dump(1), expected.dump(1));
  }
}

ordered_json awkward(const ordered_json& value, RandomSource& random) {
  static constexpr std::array kTexts{""sv, " "sv, "\"\\/"sv, "\n\x01\x7F"sv, "\u0301é\u202E🐈"sv, "{}"sv, "a\0b"sv};
  static constexpr std::array kDoubles{0.1, -0.0, 5e-324, 1e300, -1 / 3.0, 4e15 + 0.5};
  using Integers = std::numeric_limits<std::int64_t>;
  static constexpr std::array kIntegers{std::int64_t{-1}, std::int64_t{3}, Integers::min(), Integers::max()};
  if (value.is_string()) return kTexts.at(random.below(kTexts.size()));
  if (value.is_number_integer()) return kIntegers.at(random.below(kIntegers.size()));
  if (value.is_number()) return kDoubles.at(random.below(kDoubles.size()));
  return !value.get<bool>();
}

/// A document with every field, some with unusual but valid values.
std::string awkwardDocument(RandomSource& random) {
  static const std::set<std::string> kNotFree = {"id", "kind", "variant", "language", "_0", "keyCode", "sectorIndex"};
  ordered_json document = ordered_json::parse(fixture("good-every-field.json"));
  const ordered_json leaves = document.flatten();
  for (const auto& [place, value] : leaves.items()) {
    const ordered_json::json_pointer pointer(place);
    const bool isEmptyContainer = value.is_null();
    if (isEmptyContainer || kNotFree.contains(pointer.back())) continue;
    if (random.below(4) == 0) document[pointer] = awkward(value, random);
  }
  return document.dump();
}

TEST(ConfigurationRoundTrip, DecodedDocumentsRoundTrip) {
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    SCOPED_TRACE(seed);
    SeededRandom random(seed);
    const auto first = decodeConfiguration(awkwardDocument(random), random);
    ASSERT_TRUE(std::holds_alternative<PieConfiguration>(first)) << std::get<CodingError>(first).description;
    const std::string written = encoded(std::get<PieConfiguration>(first));
    const auto second = decodeConfiguration(written, random);
    ASSERT_TRUE(std::holds_alternative<PieConfiguration>(second)) << std::get<CodingError>(second).description;
    ASSERT_EQ(std::get<PieConfiguration>(second), std::get<PieConfiguration>(first));
    ASSERT_EQ(encoded(std::get<PieConfiguration>(second)), written);
  }
}

TEST(ConfigurationFixtures, ExampleOfTheReadmeHasEveryKindOfAction) {
  const std::string readme = fixture("../../../README.md");
  const auto begin = readme.find("```json\n") + 8;
  SeededRandom random;
  const auto decoded = decodeConfiguration(readme.substr(begin, readme.find("```", begin) - begin), random);
  ASSERT_TRUE(std::holds_alternative<PieConfiguration>(decoded)) << std::get<CodingError>(decoded).description;
  std::set<std::size_t> kinds;
  for (const auto& item : std::get<PieConfiguration>(decoded).menus.front().items) kinds.insert(item.action.index());
  EXPECT_EQ(kinds.size(), std::variant_size_v<MenuAction>);
}

}  // namespace
}  // namespace rondora

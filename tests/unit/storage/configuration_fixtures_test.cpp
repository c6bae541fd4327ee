#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

// Documents in fixtures/config, one test each:
// - broken.txt: documents that do not decode, each followed by the description of the error;
// - repaired.txt: documents that decode, each followed by what its re-encoding has at JSON pointers, as
//   "POINTER = VALUE", "POINTER size COUNT" or "POINTER absent";
// - good-NAME.json comes out as it went in.
// A line "# NAME" begins a document. What it leaves out of itself, its menus and their items is filled in (`completed`)
// but where "<absent>" stands; after "raw" it is taken as it is.

namespace rondora {
namespace {

using nlohmann::ordered_json;
using namespace std::string_literals;

struct Document {
  std::string name;
  std::string bytes;
  std::vector<std::string> expected;
};

void PrintTo(const Document& document, std::ostream* stream) { *stream << document.name; }

void complete(ordered_json& object, const ordered_json& defaults) {
  if (!object.is_object()) return;
  for (const auto& [key, value] : defaults.items()) {
    if (!object.contains(key)) object[key] = value;
    if (object[key] == "<absent>") object.erase(key);
  }
}

std::string idEndingIn(std::size_t number) { return "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0" + std::to_string(number); }

void completeItem(ordered_json& item, std::size_t index) {
  constexpr std::array kColors{"#FF0000", "#00FF00", "#0000FF"};
  complete(item, {{"id", idEndingIn(index)},
                  {"title", "T" + std::to_string(index)},
                  {"icon", "star.fill"},
                  {"action", {{"unassigned", ordered_json::object()}}},
                  {"color", kColors.at(index % kColors.size())},
                  {"sectorIndex", index}});
}

void completeMenu(ordered_json& menu, std::size_t index) {
  complete(menu, {{"id", idEndingIn(9 - index)},
                  {"name", "Main"},
                  {"hotkey", {{"keyCode", 49}, {"carbonModifiers", 6144}}},
                  {"items", ordered_json::array()},
                  {"menuRadius", 150},
                  {"animationDuration", 0.2}});
  if (!menu.is_object() || !menu.contains("items")) return;
  std::size_t item = 0;
  for (ordered_json& each : menu["items"]) completeItem(each, item++);
}

std::string completed(const std::string& text) {
  if (text.starts_with("raw ")) return text.substr(4);
  ordered_json document = ordered_json::parse(text);
  complete(document, {{"schemaVersion", 3}});
  std::size_t index = 0;
  if (document.contains("menus") && document["menus"].is_array()) {
    for (ordered_json& menu : document["menus"]) completeMenu(menu, index++);
  }
  return document.dump();
}

std::ifstream openFixture(const std::string& name) {
  std::ifstream file(RONDORA_FIXTURES "/config/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return file;
}

std::vector<Document> documents(const std::string& file, bool (*isExpectation)(const std::string& line)) {
  std::vector<Document> result;
  std::ifstream stream = openFixture(file);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("# ")) {
      result.push_back({line.substr(2), {}, {}});
    } else if (isExpectation(line)) {
      result.back().expected.push_back(line);
    } else {
      result.back().bytes += line;
    }
  }
  for (Document& document : result) document.bytes = completed(document.bytes);
  return result;
}

std::vector<Document> brokenDocuments() {
  auto result = documents("broken.txt", [](const std::string& line) {
    return !line.starts_with("raw ") && std::string_view("{ ").find(line.front()) == std::string_view::npos;
  });
  const std::vector<Document> unwritable{
      {"empty",
       "",
       {"not JSON: parse error at line 1, column 1: syntax error while parsing value - unexpected end of input; "
        "expected "
        "'[', '{', or a literal"}},
      {"not-utf8",
       "{\"menus\": [], \"language\": \"\xFF\xFE\"}",
       {"not JSON: parse error at line 1, column 28: syntax error while parsing value - invalid string: ill-formed "
        "UTF-8 "
        "byte"}},
      {"nul-byte-after-document", "{\"menus\": []}\0{"s, {"not JSON: contains a NUL byte"}}};
  result.insert(result.end(), unwritable.begin(), unwritable.end());
  return result;
}

std::vector<Document> repairedDocuments() {
  auto result = documents("repaired.txt", [](const std::string& line) { return line.starts_with("/"); });
  result.push_back({"byte-order-mark", "\xEF\xBB\xBF" + completed(R"({"menus": [{}]})"), {"/menus/0/name = \"Main\""}});
  return result;
}

std::string testName(const testing::TestParamInfo<Document>& info) {
  std::string name = info.param.name;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

std::string reencoded(std::string_view bytes) {
  SeededRandom random;
  const auto decoded = decodeConfiguration(bytes, random);
  if (const auto* error = std::get_if<CodingError>(&decoded)) return "error: " + error->description;
  return std::get<std::string>(encodeConfiguration(std::get<PieConfiguration>(decoded)));
}

class BrokenDocument : public testing::TestWithParam<Document> {};

TEST_P(BrokenDocument, IsRefusedWithThePlaceOfTheFault) {
  ASSERT_EQ(GetParam().expected.size(), 1U);
  EXPECT_EQ(reencoded(GetParam().bytes), "error: " + GetParam().expected.front());
}

INSTANTIATE_TEST_SUITE_P(Fixtures, BrokenDocument, testing::ValuesIn(brokenDocuments()), testName);

class RepairedDocument : public testing::TestWithParam<Document> {};

void expectLine(const ordered_json& document, const std::string& line) {
  std::istringstream words(line);
  std::string place;
  std::string relation;
  words >> place >> relation;
  const ordered_json::json_pointer pointer(place);
  if (relation == "absent") {
    EXPECT_FALSE(document.contains(pointer)) << line;
    return;
  }
  ASSERT_TRUE(document.contains(pointer)) << line;
  const ordered_json expected = ordered_json::parse(words, nullptr, false);
  if (relation == "size") {
    EXPECT_EQ(ordered_json(document.at(pointer).size()), expected) << line;
  } else {
    EXPECT_EQ(document.at(pointer), expected) << line;
  }
}

TEST_P(RepairedDocument, ReadsAsExpected) {
  const ordered_json document = ordered_json::parse(reencoded(GetParam().bytes), nullptr, false);
  ASSERT_TRUE(document.is_object()) << reencoded(GetParam().bytes);
  EXPECT_FALSE(GetParam().expected.empty());
  for (const std::string& line : GetParam().expected) expectLine(document, line);
}

INSTANTIATE_TEST_SUITE_P(Fixtures, RepairedDocument, testing::ValuesIn(repairedDocuments()), testName);

std::string contents(const std::string& name) {
  std::ifstream stream = openFixture(name);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(GoodDocument, ComesOutAsItWentIn) {
  const std::string smallest = contents("good-smallest.json");
  EXPECT_EQ(reencoded(smallest) + "\n", smallest);
  const std::string full = contents("good-every-field.json");
  EXPECT_EQ(ordered_json::parse(reencoded(full)).dump(1), ordered_json::parse(full).dump(1));
}

}  // namespace
}  // namespace rondora

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

// Documents under fixtures/config, one test each:
// - broken/NAME.json does not decode; NAME.expected is the description of the error;
// - repaired/NAME.json decodes; NAME.expected says what its re-encoding has at JSON pointers, as "POINTER = VALUE",
//   "POINTER size COUNT" or "POINTER absent";
// - good/NAME.json comes out as it went in, byte for byte.

namespace rondora {
namespace {

using nlohmann::json;

std::filesystem::path folder(const std::string& name) {
  return std::filesystem::path(RONDORA_FIXTURES) / "config" / name;
}

std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> documents(const std::string& kind) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder(kind))) {
    if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

std::string reencoded(std::string_view bytes) {
  SeededRandom random;
  const auto decoded = decodeConfiguration(bytes, random);
  if (const auto* error = std::get_if<CodingError>(&decoded)) return "error: " + error->description;
  return std::get<std::string>(encodeConfiguration(std::get<PieConfiguration>(decoded)));
}

class BrokenDocument : public testing::TestWithParam<std::string> {};

TEST_P(BrokenDocument, IsRefusedWithThePlaceOfTheFault) {
  const auto path = folder("broken") / GetParam();
  EXPECT_EQ(reencoded(contents(path.string() + ".json")) + "\n", "error: " + contents(path.string() + ".expected"));
}

INSTANTIATE_TEST_SUITE_P(Fixtures, BrokenDocument, testing::ValuesIn(documents("broken")), testName);

class RepairedDocument : public testing::TestWithParam<std::string> {};

void expectLine(const json& document, const std::string& line) {
  std::istringstream words(line);
  std::string place;
  std::string relation;
  words >> place >> relation;
  const json::json_pointer pointer(place);
  if (relation == "absent") {
    EXPECT_FALSE(document.contains(pointer)) << line;
    return;
  }
  ASSERT_TRUE(document.contains(pointer)) << line;
  const json expected = json::parse(words, nullptr, false);
  if (relation == "size") {
    EXPECT_EQ(json(document.at(pointer).size()), expected) << line;
  } else {
    EXPECT_EQ(document.at(pointer), expected) << line;
  }
}

TEST_P(RepairedDocument, ReadsAsExpected) {
  const auto path = folder("repaired") / GetParam();
  const json document = json::parse(reencoded(contents(path.string() + ".json")), nullptr, false);
  ASSERT_TRUE(document.is_object()) << reencoded(contents(path.string() + ".json"));
  std::istringstream lines(contents(path.string() + ".expected"));
  for (std::string line; std::getline(lines, line);) expectLine(document, line);
}

INSTANTIATE_TEST_SUITE_P(Fixtures, RepairedDocument, testing::ValuesIn(documents("repaired")), testName);

class GoodDocument : public testing::TestWithParam<std::string> {};

TEST_P(GoodDocument, ComesOutAsItWentIn) {
  const std::string bytes = contents(folder("good") / (GetParam() + ".json"));
  EXPECT_EQ(reencoded(bytes) + "\n", bytes);
}

INSTANTIATE_TEST_SUITE_P(Fixtures, GoodDocument, testing::ValuesIn(documents("good")), testName);

}  // namespace
}  // namespace rondora

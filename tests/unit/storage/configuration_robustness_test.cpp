#include <gmock/gmock.h>

#include <limits>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

namespace rondora {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  result.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

/// The error's description, or nothing when the document is read.
std::string problem(std::string_view bytes) {
  SeededRandom random;
  const auto decoded = decodeConfiguration(bytes, random);
  const auto* error = std::get_if<CodingError>(&decoded);
  return error == nullptr ? "" : error->description;
}

TEST(HostileDocumentTest, EndlessNestingIsRefused) {
  EXPECT_EQ(problem(repeated("[", 1'000'000)), "not JSON: nested too deeply");
  EXPECT_EQ(problem(repeated(R"({"menus":)", 1'000'000)), "not JSON: nested too deeply");
  EXPECT_EQ(problem(repeated("[", 1'000'000) + repeated("]", 1'000'000)), "not JSON: nested too deeply");
}

TEST(HostileDocumentTest, TheDeepestNestingThatIsReadIsWalkedSafely) {
  const std::string deep = repeated("[", 511) + repeated("]", 511);
  EXPECT_EQ(problem(R"({"menus": [], "x": )" + deep + "}"), "");
  EXPECT_EQ(problem(R"({"menus": [], "x": [)" + deep + "]}"), "not JSON: nested too deeply");
  EXPECT_EQ(problem(R"({"menus": )" + deep + "}"), "menus[0]: expected an object");
}

TEST(HostileDocumentTest, MegabytesOfTextAreOnlyText) {
  const std::string name(2 << 20, 'x');
  const std::string document = R"({"menus": [{"id": "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0A", "name": ")" + name +
                               R"(", "hotkey": {"keyCode": 1, "carbonModifiers": 0}, "items": [], "menuRadius": 1,
                               "animationDuration": 0}]})";
  EXPECT_EQ(problem(document), "");
  EXPECT_EQ(problem(R"({"language": ")" + name + R"(", "menus": []})"), "language: unknown value");
}

/// Small in the text and large in memory: "{}" is an item with an id, an action and a colour.
TEST(HostileDocumentTest, MillionsOfTinyItemsAreRefused) {
  const std::string start = R"({"menus": [{"items": [{})";
  EXPECT_EQ(problem(start + repeated(",{}", 1'000'000)), "not JSON: too many values");
  EXPECT_EQ(problem(start + repeated(",0", 1'000'000)), "not JSON: too many values");
}

TEST(HostileDocumentTest, DescriptionsStayShort) {
  EXPECT_THAT(problem("{\"menus\": 1" + std::string(1 << 20, '7') + "}").size(), testing::Lt(300U));
  EXPECT_THAT(problem("{\"" + std::string(1 << 20, 'k') + "\" 1}").size(), testing::Lt(300U));
}

TEST(HostileDocumentTest, ManyEqualAndManyDifferentKeysAreReadInTime) {
  std::string equal = "{";
  std::string different = "{";
  for (int i = 0; i < 50'000; ++i) {
    equal += R"("menus": [], )";
    different += "\"key" + std::to_string(i) + "\": 0, ";
  }
  EXPECT_EQ(problem(equal + R"("menus": 7})"), "menus: expected an array");
  EXPECT_EQ(problem(different + R"("menus": []})"), "");
}

TEST(EncodingTest, RefusesNumbersThatJsonCannotHold) {
  for (const double number : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    PieConfiguration document;
    document.menus.resize(1);
    document.menus[0].iconDistance = number;
    const auto encoded = encodeConfiguration(document);
    ASSERT_TRUE(std::holds_alternative<CodingError>(encoded));
    EXPECT_EQ(std::get<CodingError>(encoded).description, "iconDistance: not a finite number");
  }
}

TEST(EncodingTest, WritesReplacementCharactersForIllFormedText) {
  SeededRandom random;
  PieMenuItem item;
  item.title = "a\xFFz";
  const auto encoded = encodeMenuItem(item);
  const auto decoded = decodeMenuItem(std::get<std::string>(encoded), random);
  EXPECT_EQ(std::get<PieMenuItem>(decoded).title, "a\uFFFDz");
}

}  // namespace
}  // namespace rondora

#include <gtest/gtest.h>

#include "doubles/fake_devices.h"
#include "storage/configuration_json.h"

namespace rondora {
namespace {

using namespace std::string_literals;

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

std::string menuWithItems(std::size_t count) {
  std::string items = repeated("{}, ", count);
  items.resize(items.size() - 2);
  return R"({"menus": [{"id": "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0A", "name": "", "hotkey": {"keyCode": 0, "carbonModifiers": 0}, "menuRadius": 1, "animationDuration": 0, "items": [)" +
         items + "]}]}";
}

TEST(HostileDocumentTest, RefusesMalformedText) {
  EXPECT_EQ(problem(""),
            "not JSON: parse error at line 1, column 1: syntax error while parsing value - unexpected end of input; "
            "expected '[', '{', or a literal");
  EXPECT_EQ(problem("{\"menus\": [], \"language\": \"\xFF\xFE\"}"),
            "not JSON: parse error at line 1, column 28: syntax error while parsing value - invalid string: "
            "ill-formed UTF-8 byte");
  EXPECT_EQ(problem("{\"menus\": []}\0{"s), "not JSON: contains a NUL byte");
  EXPECT_EQ(problem("\xEF\xBB\xBF{\"menus\": []}"), "") << "a byte order mark";
}

TEST(HostileDocumentTest, LimitsDepthCountAndTime) {
  const std::string deep = repeated("[", 511) + repeated("]", 511);
  const std::string megabytes(2 << 20, 'x');
  const std::string items = R"({"menus": [{"items": [{})";
  std::string differentKeys = "{";
  for (int i = 0; i < 50'000; ++i) differentKeys += "\"key" + std::to_string(i) + "\": 0, ";
  const std::pair<std::string, std::string> cases[] = {
      {repeated("[", 1'000'000), "not JSON: nested too deeply"},
      {repeated(R"({"menus":)", 1'000'000), "not JSON: nested too deeply"},
      {R"({"menus": [], "x": [)" + deep + "]}", "not JSON: nested too deeply"},
      {R"({"menus": [], "x": )" + deep + "}", ""},
      {R"({"menus": )" + deep + "}", "menus[0]: expected an object"},
      // Small as text and large in memory: "{}" is an item with an id, an action and a colour.
      {items + repeated(",{}", 1'000'000), "not JSON: too many values"},
      {items + repeated(",0", 1'000'000), "not JSON: too many values"},
      {R"({"appSubMenus": [], "menus": [], "x": [0)" + repeated(",0", 590'000) + "]}", ""},
      // Read with few values and written with many.
      {menuWithItems(80'000), "document: too many values"},
      {menuWithItems(22'000), ""},
      {R"({"language": ")" + megabytes + R"(", "menus": []})", "language: unknown value"},
      {R"({")" + megabytes + R"(": ")" + megabytes + R"(", "menus": []})", ""},
      {"{" + repeated(R"("menus": [], )", 50'000) + R"("menus": 7})", "menus: expected an array"},
      {differentKeys + R"("menus": []})", ""},
  };
  for (const auto& [bytes, expected] : cases) EXPECT_EQ(problem(bytes), expected) << bytes.substr(0, 80);
}

TEST(HostileDocumentTest, DescriptionsStayShort) {
  EXPECT_LT(problem("{\"menus\": 1" + std::string(1 << 20, '7') + "}").size(), 300U);
  EXPECT_LT(problem("{\"" + std::string(1 << 20, 'k') + "\" 1}").size(), 300U);
}

}  // namespace
}  // namespace rondora

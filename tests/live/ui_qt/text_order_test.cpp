#include <gtest/gtest.h>

#include "platform/qt/qt_text_order.h"

namespace rondora {
namespace {

std::vector<std::string> ordered(const std::vector<std::string>& texts, const char* language) {
  std::vector<std::string> result;
  for (const std::size_t place : QtTextOrder().order(texts, language)) result.push_back(texts[place]);
  return result;
}

TEST(TextOrderTest, FollowsTheLanguage) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(ordered({"Zebra", "Ärger", "banane", "Apfel", "Teil 10", "Teil 9"}, "de"),
            (Texts{"Apfel", "Ärger", "banane", "Teil 9", "Teil 10", "Zebra"}));
  EXPECT_EQ(ordered({"Енот", "жук", "ёлка", "Zebra"}, "ru"), (Texts{"ёлка", "Енот", "жук", "Zebra"}));
}

}  // namespace
}  // namespace rondora

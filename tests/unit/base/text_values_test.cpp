#include <gtest/gtest.h>

#include "base/color.h"
#include "base/unicode.h"
#include "base/uuid.h"

namespace rondora {
namespace {

TEST(UuidTest, ParsesEitherCaseAndWritesUpperCase) {
  ASSERT_TRUE(Uuid::parse("7f2c1d90-4a6b-4e0e-9b63-0c5a8d3e1f0A"));
  EXPECT_EQ(Uuid::parse("7f2c1d90-4a6b-4e0e-9b63-0c5a8d3e1f0A")->string(), "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0A");
  for (const std::string_view text : {"", "7F2C1D904A6B4E0E9B630C5A8D3E1F0A", "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0",
                                      "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0A0", "7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F0G",
                                      "7F2C1D90+4A6B-4E0E-9B63-0C5A8D3E1F0A", "{7F2C1D90-4A6B-4E0E-9B63-0C5A8D3E1F}"}) {
    EXPECT_FALSE(Uuid::parse(text)) << text;
  }
}

TEST(ColorTest, ReadsHexadecimalText) {
  EXPECT_EQ(Color::fromHex("#FF0080"), (Color{1, 0, 128 / 255.0, 1}));
  EXPECT_EQ(Color::fromHex("ff0080"), Color::fromHex("#FF0080"));
  for (const std::string_view text : {"", "#", "#FFF", "#FF00800", "##F0080", "#-F0080", "#+F0080", "#GG0080"}) {
    EXPECT_FALSE(Color::fromHex(text)) << text;
  }
}

TEST(UnicodeTest, IllFormedBytesCountOneByOne) {
  const std::string_view text = "a\xC3\xF0\x9F\x98z\xED\xA0\x80";
  EXPECT_FALSE(isValidUtf8(text));
  EXPECT_EQ(scalarCount(text), 9U);
  EXPECT_TRUE(isValidUtf8(upperCased(text)));
  EXPECT_EQ(trimmed("\xFF q \xC3"), "\xFF q \xC3");
  EXPECT_TRUE(isValidUtf8("ж🐈"));
  EXPECT_EQ(scalarCount("ж🐈"), 2U);
}

TEST(UnicodeTest, UpperCaseIsTheFullMapping) {
  EXPECT_EQ(upperCased("straße ŉ ﬁ ΐ ᾳ"), "STRASSE ʼN FI \u0399\u0308\u0301 ΑΙ");
  EXPECT_EQ(upperCased("ẞİ"), "ẞİ") << "capitals stay";
}

TEST(UnicodeTest, ControlsAreEscapedAndVisibleTextIsNot) {
  EXPECT_EQ(controlsEscaped("é 👩‍🚀\ta\x1B[2J\r\n\x7F"), R"(é 👩‍🚀\x09a\x1B[2J\x0D \x7F)");
  EXPECT_EQ(controlsEscaped("\u202Eevil\u2066 \u0085\u2028 \xC3("), R"(\u202Eevil\u2066 \u0085\u2028 \xC3()");
}

}  // namespace
}  // namespace rondora

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/macos/conversions/display_spaces.h"
#include "platform/macos/conversions/symbolic_hot_key_settings.h"
#include "platform/macos/conversions/window_information.h"

namespace rondora::macos {
namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

PropertyList integer(std::int64_t value) { return {value}; }
PropertyList text(const char* value) { return {std::string(value)}; }

TEST(SymbolicHotKeyTest, AnEntryIsReadAsFarAsItHasTheRightTypes) {
  const PropertyList parameters{Array{integer(65535), integer(124), integer(8650752)}};
  const PropertyList value{Dictionary{{"parameters", parameters}, {"type", text("standard")}}};
  const PropertyList settings{Dictionary{
      {"79", {Dictionary{{"enabled", {false}}, {"value", value}}}},
      {"80", {Dictionary{{"enabled", integer(1)}, {"value", text("none")}}}},
      {"81", {Dictionary{{"value", {Dictionary{{"parameters", {Array{integer(1), text("x")}}}}}}}}},
  }};
  const auto left = symbolicHotKey(settings, 79);
  ASSERT_TRUE(left);
  EXPECT_EQ(left->enabled, false);
  EXPECT_EQ(left->parameters, (std::vector<std::int64_t>{65535, 124, 8650752}));
  EXPECT_EQ(symbolicHotKey(settings, 80)->enabled, true);
  EXPECT_FALSE(symbolicHotKey(settings, 80)->parameters);
  EXPECT_FALSE(symbolicHotKey(settings, 81)->enabled);
  EXPECT_FALSE(symbolicHotKey(settings, 81)->parameters);
  EXPECT_FALSE(symbolicHotKey(settings, 82));
  EXPECT_FALSE(symbolicHotKey({}, 79));
}

TEST(WindowInformationTest, AFieldOfAnotherTypeIsMissing) {
  const PropertyList bounds{
      Dictionary{{"X", {-10.0}}, {"Y", integer(25)}, {"Width", {800.5}}, {"Height", integer(600)}}};
  const auto window = windowListEntry({Dictionary{{"kCGWindowOwnerPID", integer(501)},
                                                  {"kCGWindowLayer", integer(0)},
                                                  {"kCGWindowNumber", integer(0xFFFFFFFF)},
                                                  {"kCGWindowAlpha", {0.25}},
                                                  {"kCGWindowBounds", bounds}}});
  EXPECT_EQ(window.ownerPID, 501);
  EXPECT_EQ(window.layer, 0);
  EXPECT_EQ(window.number, 0xFFFFFFFF);
  EXPECT_EQ(std::get<double>(window.alpha), 0.25);
  EXPECT_EQ(window.bounds, (Rect{{-10, 25}, {800.5, 600}}));

  const auto broken = windowListEntry({Dictionary{{"kCGWindowOwnerPID", integer(std::int64_t{1} << 31)},
                                                  {"kCGWindowLayer", text("0")},
                                                  {"kCGWindowNumber", integer(-1)},
                                                  {"kCGWindowAlpha", text("1")},
                                                  {"kCGWindowBounds", {Dictionary{{"X", integer(0)}}}}}});
  EXPECT_FALSE(broken.ownerPID || broken.layer || broken.number || broken.bounds);
  EXPECT_TRUE(std::holds_alternative<WindowListEntry::Malformed>(broken.alpha));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(windowListEntry({}).alpha));
}

TEST(DisplaySpacesTest, EachDisplayKeepsTheOrderOfItsSpaces) {
  const auto space = [](std::int64_t id) { return PropertyList{Dictionary{{"ManagedSpaceID", integer(id)}}}; };
  const PropertyList first{
      Dictionary{{"Spaces", {Array{space(3), {Dictionary{}}, space(1)}}}, {"Current Space", space(1)}}};
  const auto displays = displaySpaces({Array{first, text("no display")}});
  ASSERT_EQ(displays.size(), 2U);
  EXPECT_EQ(displays[0].spaces, (std::vector<std::optional<std::uint64_t>>{3, std::nullopt, 1}));
  EXPECT_EQ(displays[0].currentSpace, 1U);
  EXPECT_TRUE(displays[1].spaces.empty());
  EXPECT_FALSE(displays[1].currentSpace);
}

}  // namespace
}  // namespace rondora::macos

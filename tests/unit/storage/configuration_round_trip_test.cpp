#include <gmock/gmock.h>

#include "doubles/fake_devices.h"
#include "random_configuration.h"
#include "storage/configuration_json.h"

namespace rondora {
namespace {

std::string encoded(const PieConfiguration& configuration) {
  return std::get<std::string>(encodeConfiguration(configuration));
}

TEST(RoundTripTest, WhatIsWrittenIsReadBackEqual) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    SeededRandom random(seed);
    const PieConfiguration document = randomConfiguration(random);
    const auto decoded = decodeConfiguration(encoded(document), random);
    ASSERT_TRUE(std::holds_alternative<PieConfiguration>(decoded)) << std::get<CodingError>(decoded).description;
    ASSERT_EQ(encoded(std::get<PieConfiguration>(decoded)), encoded(document));
    ASSERT_EQ(std::get<PieConfiguration>(decoded), document);
  }
}

TEST(RoundTripTest, TheFirstRunDocumentStaysAsItIsButForItsSidebarColor) {
  SeededRandom random;
  PieConfiguration document = PieConfiguration::defaultConfig(random);
  const auto decoded = decodeConfiguration(encoded(document), random);
  document.menus[0].globalSidebarIconColorHex = "#007AFF";
  EXPECT_EQ(std::get<PieConfiguration>(decoded), document);
}

/// Replaces, drops or doubles a stretch of the text.
void mutate(std::string& text, RandomSource& random) {
  static constexpr std::string_view kPieces[] = {"null", "0",  "-1", "1e400", "\"\"", "[]", "{}",
                                                 "true", "\"", ",",  "5",     "3.5",  "\\", "\xC3"};
  const auto from = random.below(text.size());
  const auto length = random.below(std::min<std::uint64_t>(text.size() - from, 12) + 1);
  std::string piece(kPieces[random.below(std::size(kPieces))]);
  if (random.below(3) == 0) piece = text.substr(from, length) + text.substr(from, length);
  text.replace(from, length, piece);
}

TEST(RoundTripTest, WhateverIsReadFromADamagedDocumentIsWrittenAndReadBackEqual) {
  int readable = 0;
  for (std::uint64_t seed = 0; seed < 1000; ++seed) {
    SCOPED_TRACE(seed);
    SeededRandom random(seed);
    std::string text = encoded(randomConfiguration(random));
    mutate(text, random);
    const auto first = decodeConfiguration(text, random);
    if (std::holds_alternative<CodingError>(first)) continue;
    ++readable;
    const auto second = decodeConfiguration(encoded(std::get<PieConfiguration>(first)), random);
    ASSERT_TRUE(std::holds_alternative<PieConfiguration>(second)) << std::get<CodingError>(second).description;
    ASSERT_EQ(std::get<PieConfiguration>(second), std::get<PieConfiguration>(first));
  }
  EXPECT_GT(readable, 50);
}

}  // namespace
}  // namespace rondora

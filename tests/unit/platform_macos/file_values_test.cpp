#include <gtest/gtest.h>

#include "platform/macos/conversions/file_extensions.h"
#include "platform/macos/conversions/pasteboard_type.h"
#include "platform/macos/conversions/picture_fitting.h"

namespace rondora::macos {
namespace {

TEST(PictureFitting, KeepsTheProportions) {
  EXPECT_EQ(fittedSize({200, 100}, 50), (PictureSize{50, 25}));
  EXPECT_EQ(fittedSize({3, 8}, 16), (PictureSize{6, 16}));
  EXPECT_EQ(fittedSize({4000, 1}, 32), (PictureSize{32, 1}));
}

TEST(PictureFitting, ChoosesTheSmallestPictureThatSufficesWithinTheLimit) {
  const std::vector<PictureSize> icons = {{16, 16}, {64, 64}, {32, 32}, {256, 256}};
  EXPECT_EQ(bestPicture(icons, 32, 1024), 2U);
  EXPECT_EQ(bestPicture(icons, 100, 128), 1U);
  EXPECT_EQ(bestPicture({{0, 8}, {2000, 8}, {8, 2000}}, 32, 1024), std::nullopt);
}

TEST(PasteboardType, PutsOwnTypesBelowTheProgramsIdentifier) {
  EXPECT_EQ(pasteboardType("application/x-rondora.menu-item-v1"), "io.github.rondora.Rondora.menu-item-v1");
  EXPECT_EQ(pasteboardType("public.png"), "public.png");
}

TEST(FileExtensions, AllowEveryFileOnceAKindDoes) {
  EXPECT_EQ(extensionsOf({{"Pictures", {"*.png", "*.tar.gz"}}, {"Text", {"*.txt"}}}),
            (std::vector<std::string>{"png", "gz", "txt"}));
  EXPECT_EQ(extensionsOf({{"Text", {"*.txt"}}, {"All", {"*"}}}), std::vector<std::string>{});
}

}  // namespace
}  // namespace rondora::macos

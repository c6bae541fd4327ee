#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/macos/conversions/application_bundles.h"
#include "platform/macos/conversions/application_information.h"
#include "platform/macos/conversions/remote_token.h"
#include "platform/macos/conversions/straight_pixels.h"

namespace rondora::macos {
namespace {

namespace fs = std::filesystem;

using Dictionary = PropertyList::Dictionary;

PropertyList text(const char* value) { return {std::string(value)}; }

TEST(ApplicationInformationTest, OnlyWhatAUserStartsIsOffered) {
  const PropertyList::Entry identifier{"CFBundleIdentifier", text("org.example.Editor")};
  const PropertyList::Entry program{"CFBundleExecutable", text("editor")};
  const auto application = startableApplication({Dictionary{identifier, program}}, "Editor");
  ASSERT_TRUE(application);
  EXPECT_EQ(application->bundleIdentifier, "org.example.Editor");
  EXPECT_EQ(application->name, "Editor");
  EXPECT_EQ(application->executable, "editor");
  EXPECT_FALSE(startableApplication({}, "Editor"));
  EXPECT_FALSE(startableApplication({Dictionary{program}}, "Editor"));

  const PropertyList off[] = {{false}, {std::int64_t{0}}, text("0"), text("NO")};
  const PropertyList on[] = {{true}, {std::int64_t{1}}, text("1"), text("YES"), text("true")};
  const auto isOffered = [&](const PropertyList& background) {
    return startableApplication({Dictionary{identifier, {"LSBackgroundOnly", background}}}, "Editor").has_value();
  };
  EXPECT_TRUE(std::all_of(std::begin(off), std::end(off), isOffered));
  EXPECT_TRUE(std::none_of(std::begin(on), std::end(on), isOffered));
}

TEST(ApplicationBundlesTest, BundlesAreFoundInFoldersButNotInsideBundles) {
  const fs::path root = fs::path(testing::TempDir()) / "application_bundles_test";
  fs::remove_all(root);
  for (const char* folder : {"Mail.app/Contents/Helper.app", "Tools/Disk.app", ".Trash/Old.app", "a/b/c/Deep.app",
                             "a/b/c/d/Deeper.app", "Notes"}) {
    fs::create_directories(root / folder);
  }
  fs::create_directory_symlink(root / "Tools/Disk.app", root / "Link.app");
  fs::create_directory_symlink(root, root / "Again");
  fs::create_symlink("nowhere", root / "Broken.app");
  auto bundles = applicationBundles(root);
  std::sort(bundles.begin(), bundles.end());
  EXPECT_EQ(bundles, (std::vector<fs::path>{root / "Link.app", root / "Mail.app", root / "Tools/Disk.app",
                                            root / "a/b/c/Deep.app"}));
  EXPECT_EQ(applicationBundles(root / "Mail.app"), std::vector<fs::path>{root / "Mail.app"});
  EXPECT_TRUE(applicationBundles(root / "Missing").empty());
  fs::remove_all(root);
  EXPECT_EQ(withoutBundleEnding("Mail.app"), "Mail");
  EXPECT_EQ(withoutBundleEnding("draw.io"), "draw.io");
}

TEST(RemoteTokenTest, ProcessAndElementStandInLittleEndian) {
  EXPECT_EQ(remoteToken(0x01020304, 0x1122334455667788),
            (RemoteToken{0x04, 0x03, 0x02, 0x01, 0,    0,    0,    0,    'o',  'c',
                         'o',  'c',  0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11}));
}

TEST(StraightPixelTest, ColoursRegainTheirStrength) {
  EXPECT_EQ(straightPixel(0xFF123456), 0xFF123456);
  EXPECT_EQ(straightPixel(0x80800040), 0x80FF0080);
  EXPECT_EQ(straightPixel(0x01010000), 0x01FF0000);
  EXPECT_EQ(straightPixel(0x40FF0000), 0x40FF0000);  // brighter than its alpha allows
  EXPECT_EQ(straightPixel(0x00000000), 0U);
}

}  // namespace
}  // namespace rondora::macos

#include "icons/icon_reference.h"

#include <gtest/gtest.h>

#include <utility>

namespace rondora {
namespace {

TEST(IconReferenceTest, ParsesEachKind) {
  struct Case {
    const char* icon;
    IconKind kind;
    const char* name;
  };
  const Case cases[] = {
      {"", IconKind::none, ""},
      {"folder.fill", IconKind::symbol, "folder.fill"},
      {"7", IconKind::symbol, "7"},
      {"étoile", IconKind::symbol, "étoile"},
      {"app:", IconKind::symbol, "app:"},
      {"\xFF\xFE", IconKind::symbol, "\xFF\xFE"},
      {"app:org.mozilla.firefox", IconKind::application, "org.mozilla.firefox"},
      {"/usr/share/pixmaps/x.png", IconKind::imageFile, "/usr/share/pixmaps/x.png"},
      {"7️⃣", IconKind::emoji, "7️⃣"},
      {"🏴󠁧󠁢󠁥󠁮󠁧󠁿", IconKind::emoji, "🏴󠁧󠁢󠁥󠁮󠁧󠁿"},
      {"🇫🇷🇳🇴", IconKind::emoji, "🇫🇷"},
      {"👩🏿‍❤️‍💋‍👨🏻🍕", IconKind::emoji, "👩🏿‍❤️‍💋‍👨🏻"},
      {"🙂 smile", IconKind::emoji, "🙂"},
      {"level 7️⃣", IconKind::symbol, "level 7️⃣"}};
  for (const Case& c : cases) {
    EXPECT_EQ(IconReference::parse(c.icon), (IconReference{c.kind, c.name})) << c.icon;
  }
}

TEST(IconReferenceTest, FaviconNamesASite) {
  const auto site = [](std::string icon, MenuAction action) {
    PieMenuItem item;
    item.icon = std::move(icon);
    item.action = std::move(action);
    const IconReference reference = IconReference::of(item);
    EXPECT_EQ(reference.kind, IconKind::favicon);
    return reference.name;
  };
  EXPECT_EQ(site("favicon:", OpenURL{"https://Example.org/a?b"}), "https://example.org");
  EXPECT_EQ(site("favicon:", LaunchApp{"org.mozilla.firefox"}), "");
  EXPECT_EQ(site("favicon:", OpenURL{"mailto:a@example.org"}), "");
  EXPECT_EQ(site("favicon:example.org", OpenURL{"https://other.org"}), "https://example.org");
  EXPECT_EQ(site("favicon:http://example.org:8080/x", Unassigned{}), "http://example.org:8080");
  EXPECT_EQ(site("favicon:file:///etc/passwd", Unassigned{}), "");
}

}  // namespace
}  // namespace rondora

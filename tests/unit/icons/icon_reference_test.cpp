#include "icons/icon_reference.h"

#include <gtest/gtest.h>

namespace rondora {
namespace {

TEST(IconReferenceTest, TellsTheKindsApart) {
  struct Case {
    const char* icon;
    IconKind kind;
    const char* name;
  };
  const Case cases[] = {
      {"", IconKind::none, ""},
      {"folder.fill", IconKind::symbol, "folder.fill"},
      {"die.face.5.fill", IconKind::symbol, "die.face.5.fill"},
      {"7", IconKind::symbol, "7"},
      {"étoile", IconKind::symbol, "étoile"},
      {"app:", IconKind::symbol, "app:"},
      {"\xFF\xFE", IconKind::symbol, "\xFF\xFE"},
      {"app:org.mozilla.firefox", IconKind::application, "org.mozilla.firefox"},
      {"/usr/share/pixmaps/x.png", IconKind::imageFile, "/usr/share/pixmaps/x.png"},
      {"🦊", IconKind::emoji, "🦊"},
      {"❤️", IconKind::emoji, "❤️"},
      {"👩‍💻", IconKind::emoji, "👩‍💻"},
      {"👍🏽", IconKind::emoji, "👍🏽"},
      {"🇫🇷", IconKind::emoji, "🇫🇷"},
      {"7️⃣", IconKind::emoji, "7️⃣"},
      {"🏴󠁧󠁢󠁥󠁮󠁧󠁿", IconKind::emoji, "🏴󠁧󠁢󠁥󠁮󠁧󠁿"},
      {"🇫🇷🇳🇴", IconKind::emoji, "🇫🇷"},
      {"👩🏿‍❤️‍💋‍👨🏻🍕", IconKind::emoji, "👩🏿‍❤️‍💋‍👨🏻"},
      {"🙂 smile", IconKind::emoji, "🙂"},
      {"level 7️⃣", IconKind::symbol, "level 7️⃣"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(IconReference::parse(c.icon), (IconReference{c.kind, c.name})) << c.icon;
  }
}

TEST(IconReferenceTest, ApplicationReferencesComeBack) {
  EXPECT_EQ(IconReference::parse(IconReference::application("org.gnome.Nautilus")),
            (IconReference{IconKind::application, "org.gnome.Nautilus"}));
}

}  // namespace
}  // namespace rondora

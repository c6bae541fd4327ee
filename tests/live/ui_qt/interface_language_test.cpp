#include "ui/qt/interface/interface_language.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <set>
#include <string>

#include "localization/string_table.h"
#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

struct Rendering {
  std::set<std::string> families;
  bool hasMissingGlyph = false;
};

Rendering render(std::string_view utf8, const QFont& font = QApplication::font()) {
  QTextLayout layout(toQString(utf8), font);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  Rendering result;
  for (const QGlyphRun& run : layout.glyphRuns()) {
    result.families.insert(run.rawFont().familyName().toStdString());
    result.hasMissingGlyph |= run.glyphIndexes().contains(0);
  }
  return result;
}

class InterfaceLanguageTest : public testing::Test {
 protected:
  ~InterfaceLanguageTest() override { useInterfaceLanguage(AppLanguage::english); }
};

TEST_F(InterfaceLanguageTest, EachLanguageHasItsDirectionAndOneFont) {
  for (const AppLanguage language : kAppLanguages) {
    useInterfaceLanguage(language);
    EXPECT_EQ(QApplication::layoutDirection(), isRightToLeft(language) ? Qt::RightToLeft : Qt::LeftToRight);
    std::set<std::string> families = render("Rondora").families;
    for (const std::string_view text : stringTable(language)) {
      const Rendering rendering = render(text);
      EXPECT_FALSE(rendering.hasMissingGlyph) << text;
      families.insert(rendering.families.begin(), rendering.families.end());
    }
    EXPECT_LE(families.size(), 2U) << rawValue(language);
  }
}

TEST_F(InterfaceLanguageTest, SharedCharactersHaveTheLanguagesForms) {
  useInterfaceLanguage(AppLanguage::chinese);
  EXPECT_EQ(render("直").families, std::set<std::string>{"Noto Sans CJK SC"});
  useInterfaceLanguage(AppLanguage::japanese);
  EXPECT_EQ(render("直").families, std::set<std::string>{"Noto Sans CJK JP"});
}

TEST_F(InterfaceLanguageTest, UrduTitlesJoinTheirLetters) {
  constexpr std::string_view kTitle = "سفر کے نوٹس میں";
  for (const AppLanguage language : kAppLanguages) {
    useInterfaceLanguage(language);
    EXPECT_EQ(render(kTitle, interfaceFontFor(toQString(kTitle))).families.size(), 1U) << rawValue(language);
  }
}

}  // namespace
}  // namespace rondora

#include "ui/qt/painting/icon_images.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "app/status_menu.h"
#include "doubles/fake_devices.h"
#include "doubles/fake_session.h"
#include "doubles/fake_status_bar.h"
#include "doubles/virtual_time.h"
#include "model/pie_configuration.h"
#include "model/symbol_name.h"
#include "ui/qt/painting/picture_decoding.h"
#include "ui/qt/painting/symbol_images.h"
#include "ui/qt/painting/symbol_table.h"

namespace rondora {
namespace {

constexpr int kSide = 48;
constexpr Color kRed{1, 0, 0, 1};

/// Statistics of the opaque pixels.
struct Coverage {
  int opaquePixels = 0;
  std::set<QRgb> colours;
};

Coverage coverage(const QImage& image) {
  Coverage result;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) != 255) continue;
      ++result.opaquePixels;
      result.colours.insert(image.pixel(x, y));
    }
  }
  return result;
}

class IconImagesTest : public testing::Test {
 protected:
  QImage icon(IconKind kind, const std::string& name, Color tint = kRed) {
    return images.image({kind, name, {}, tint}, kSide);
  }
  QString write(const QString& name, const QByteArray& bytes) {
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return path;
  }

  QString paint(const QString& name, QSize size, QColor color) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(color);
    EXPECT_TRUE(picture.save(folder.filePath(name)));
    return folder.filePath(name);
  }

  QTemporaryDir folder;
  FakeApplicationIcons applications;
  IconImages images{applications, {.sitePicture = {}, .decode = decodeAtOnce}};
};

TEST_F(IconImagesTest, EverySymbolHasItsOwnPictureInTheTint) {
  std::vector<QImage> others = {icon(IconKind::symbol, "no such symbol")};
  ASSERT_GT(coverage(others.front()).opaquePixels, 0);
  for (const SymbolEntry& entry : symbolTable()) {
    if (entry.name == kNeutralSymbolName) continue;
    SCOPED_TRACE(entry.name);
    const QImage image = icon(IconKind::symbol, std::string(entry.name));
    EXPECT_EQ(image.size(), QSize(kSide, kSide));
    EXPECT_GT(coverage(image).opaquePixels, kSide * kSide / 50);
    EXPECT_EQ(coverage(image).colours.size(), 1U);
    EXPECT_EQ(std::count(others.begin(), others.end(), image), 0);
    others.push_back(image);
  }
  EXPECT_EQ(icon(IconKind::symbol, "star"), icon(IconKind::symbol, "star.fill"));
  EXPECT_EQ(icon(IconKind::symbol, "globe.fill"), icon(IconKind::symbol, "globe"));
}

TEST_F(IconImagesTest, EverySymbolThatTheProgramUsesExists) {
  SeededRandom random;
  std::set<std::string, std::less<>> used(PieMenuItem::kUnassignedSymbols.begin(),
                                          PieMenuItem::kUnassignedSymbols.end());
  for (const PieMenu& menu : PieConfiguration::defaultConfig(random).menus) {
    for (const PieMenuItem& item : menu.items) used.insert(item.icon);
  }
  FakeApplicationShell shell;
  FakeStatusBar statusBar;
  const LocalizationStore localization;
  VirtualTime time;
  StatusMenu({.mainQueue = time,
              .shell = shell,
              .statusBar = statusBar,
              .localization = localization,
              .openSettings = {},
              .quitApp = {}})
      .setupStatusBar();
  for (const MenuEntry& entry : statusBar.items.back()->menu) {
    if (!entry.isSeparator) used.insert(entry.symbol);
  }
  EXPECT_GE(used.size(), 49u + 5 + 1);
  for (const std::string& name : used) EXPECT_TRUE(findSymbol(name)) << name;
}

TEST_F(IconImagesTest, EmojiSequencesAreSinglePictures) {
  for (const char* emoji :
       {"🍕", "👩‍🚀", "❤️", "👍🏽", "👩🏿‍❤️‍💋‍👨🏻", "7️⃣"}) {
    SCOPED_TRACE(emoji);
    const QImage image = icon(IconKind::emoji, emoji);
    EXPECT_GE(std::min(image.width(), image.height()), kSide * 3 / 4);
    EXPECT_GT(coverage(image).colours.size(), 8U);
  }
  for (const char* flag : {"🇳🇴", "🏳️‍🌈", "🏴‍☠️", "🏴󠁧󠁢󠁥󠁮󠁧󠁿"}) {
    SCOPED_TRACE(flag);
    const QImage image = icon(IconKind::emoji, flag);
    EXPECT_EQ(image.width(), kSide);
    EXPECT_GT(image.height(), kSide / 2);
    EXPECT_GT(coverage(image).opaquePixels, kSide * kSide / 3);
  }
  EXPECT_EQ(icon(IconKind::emoji, "❤️"), icon(IconKind::emoji, "❤"));
  EXPECT_EQ(icon(IconKind::emoji, "\U00013000"), icon(IconKind::symbol, "no such symbol"));
}

TEST_F(IconImagesTest, ApplicationIconIsItsOwnElseItsWindows) {
  applications.sources["org.example.Files"].themeName = "folder";
  EXPECT_GT(coverage(icon(IconKind::application, "org.example.Files")).colours.size(), 2U);
  for (const Qt::GlobalColor colour : {Qt::blue, Qt::green}) {
    const QString file = paint(QString::number(colour) + ".png", {20, 20}, colour);
    applications.sources["org.example.Blue"].themeName = file.toStdString();
    EXPECT_EQ(icon(IconKind::application, "org.example.Blue").pixelColor(5, 5), QColor(colour));
  }

  applications.sources["org.example.Editor"].filePath = "/no/such/picture.png";
  const QImage before = icon(IconKind::application, "org.example.Editor");
  ApplicationIconSource source;
  source.pixels.assign(16 * 16, 0xFF00FF00);
  source.pixelWidth = source.pixelHeight = 16;
  applications.windowSources["org.example.Editor"] = source;
  const QImage after = icon(IconKind::application, "org.example.Editor");
  EXPECT_NE(before, after);
  EXPECT_EQ(after.size(), QSize(kSide, kSide));
  EXPECT_EQ(after.pixel(kSide / 2, kSide / 2), 0xFF00FF00);
}

TEST_F(IconImagesTest, ImagesOfFewColoursKeepThemWhenTheyAreScaled) {
  QImage twoColours(200, 120, QImage::Format_Mono);
  twoColours.setColorTable({qRgb(255, 0, 0), qRgb(255, 255, 255)});
  twoColours.fill(0);
  const QString file = folder.filePath("two.png");
  ASSERT_TRUE(twoColours.save(file));
  const QImage image = icon(IconKind::imageFile, file.toStdString());
  EXPECT_EQ(coverage(image).colours, std::set{qRgb(255, 0, 0)});
}

TEST_F(IconImagesTest, ReadsEveryCommonFormat) {
  const QString svg = write("drawn.svg",
                            "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 4 4'>"
                            "<rect width='2' height='4' fill='#ff0000'/>"
                            "<rect x='2' width='2' height='4' fill='#0000ff'/></svg>");
  for (const QString& path : {svg, paint("a.png", {300, 300}, Qt::blue), paint("a.jpg", {300, 300}, Qt::blue),
                              paint("a.ico", {16, 16}, Qt::blue), paint("a.bmp", {9, 9}, Qt::blue)}) {
    const QImage image = icon(IconKind::imageFile, path.toStdString());
    ASSERT_EQ(image.size(), QSize(kSide, kSide)) << path.toStdString();
    EXPECT_GT(qBlue(image.pixel(kSide / 2, kSide / 2)), 250);
    EXPECT_LT(qRed(image.pixel(kSide / 2, kSide / 2)), 5);
  }
  EXPECT_EQ(icon(IconKind::imageFile, svg.toStdString()).pixel(kSide / 2 - 1, 5), qRgb(255, 0, 0)) << "not sharp";
}

TEST_F(IconImagesTest, UntrustedFilesGiveTheNeutralPicture) {
  const QImage neutral = icon(IconKind::imageFile, "/no/such/file.png");
  ASSERT_GT(coverage(neutral).opaquePixels, 0);
  const QString broken = write("broken.png", "\x89PNG\r\n\x1a\n and then no image data");
  const QString empty = write("empty.png", {});
  const QString wide = paint("wide.png", {5000, 2}, Qt::blue);
  QFile huge(folder.filePath("huge.png"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize((16 << 20) + 1));
  const QString longDrawing = write("long.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'>" +
                                                    QByteArray(2 << 20, ' ') + "<rect width='4' height='4'/></svg>");
  const QString packedDrawing = write(
      "packed.svgz",
      QByteArray::fromBase64("H4sIAAAAAAACAxXLMQ6AIAxA0at060YbZTLA4FWUAImKwcZyfGX7w/"
                             "vueRP087gej1nkXohU1ehsaks0MTP9AuEtUdfaPTIwWLAYXIubgJZdskeLkGNJWUZScGMKH5jxlKRcAAAA"));
  const QString pipe = folder.filePath("pipe.png");
  ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
  ASSERT_TRUE(QFile::link("/dev/zero", folder.filePath("zero.png")));
  for (const QString& path : {broken, empty, wide, huge.fileName(), longDrawing, packedDrawing, pipe, folder.path(),
                              folder.filePath("zero.png"), QStringLiteral("relative.png")}) {
    EXPECT_EQ(icon(IconKind::imageFile, path.toStdString()), neutral) << path.toStdString();
  }
}

TEST_F(IconImagesTest, ImageFileIsFittedAndReloadedAfterAChange) {
  qint64 second = 1'000'000;
  for (const QColor& colour : {QColor(Qt::blue), QColor(Qt::green)}) {
    QFile file(paint("picture.png", {20, 10}, colour));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(++second), QFileDevice::FileModificationTime));
    file.close();
    const QImage image = icon(IconKind::imageFile, file.fileName().toStdString());
    EXPECT_EQ(image.size(), QSize(kSide, kSide / 2));
    EXPECT_EQ(image.pixelColor(5, 5), colour);
  }
}

}  // namespace
}  // namespace rondora

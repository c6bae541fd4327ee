#include "ui/qt/icon_images.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <map>
#include <string>

#include "ui/qt/symbol_images.h"
#include "ui/qt/symbol_table.h"

namespace rondora {
namespace {

constexpr int kSide = 48;
constexpr Color kRed{1, 0, 0, 1};

class StoredApplicationIcons : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view bundleIdentifier) const override {
    const auto found = sources.find(std::string(bundleIdentifier));
    if (found == sources.end()) return std::nullopt;
    return found->second;
  }
  std::map<std::string, ApplicationIconSource> sources;
};

struct Coverage {
  int opaquePixels = 0;
  int colours = 0;
};

Coverage coverage(const QImage& image) {
  Coverage result;
  std::map<QRgb, int> seen;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      if (qAlpha(pixel) != 255) continue;
      ++result.opaquePixels;
      ++seen[pixel];
    }
  }
  result.colours = static_cast<int>(seen.size());
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

  QTemporaryDir folder;
  StoredApplicationIcons applications;
  IconImages images{applications};
};

TEST_F(IconImagesTest, EverySymbolOfTheTableHasItsOwnPictureInTheTint) {
  const QImage neutral = icon(IconKind::symbol, "no such symbol");
  ASSERT_GT(coverage(neutral).opaquePixels, 0);
  for (const SymbolEntry& entry : symbolTable()) {
    SCOPED_TRACE(entry.name);
    const QImage image = icon(IconKind::symbol, std::string(entry.name));
    EXPECT_EQ(image.size(), QSize(kSide, kSide));
    EXPECT_GT(coverage(image).opaquePixels, kSide * kSide / 50);
    EXPECT_EQ(coverage(image).colours, 1);
    EXPECT_NE(image, neutral);
  }
}

TEST_F(IconImagesTest, ASymbolIsFoundWithAndWithoutItsFilling) {
  EXPECT_EQ(icon(IconKind::symbol, "star"), icon(IconKind::symbol, "star.fill"));
  EXPECT_EQ(icon(IconKind::symbol, "globe.fill"), icon(IconKind::symbol, "globe"));
}

TEST_F(IconImagesTest, EmojiKeepTheirColours) {
  for (const char* emoji : {"🍕", "👩‍🚀", "🇳🇴", "❤️"}) {
    SCOPED_TRACE(emoji);
    const QImage image = icon(IconKind::emoji, emoji);
    EXPECT_EQ(std::max(image.width(), image.height()), kSide);
    EXPECT_GT(coverage(image).colours, 8);
  }
}

TEST_F(IconImagesTest, AnApplicationShowsItsWindowsPictureAsSoonAsItHasOne) {
  const QImage before = icon(IconKind::application, "org.example.Editor");
  ApplicationIconSource source;
  source.pixels.assign(16 * 16, 0xFF00FF00);
  source.pixelWidth = source.pixelHeight = 16;
  applications.sources["org.example.Editor"] = source;
  const QImage after = icon(IconKind::application, "org.example.Editor");
  EXPECT_NE(before, after);
  EXPECT_EQ(after.size(), QSize(kSide, kSide));
  EXPECT_EQ(after.pixel(kSide / 2, kSide / 2), 0xFF00FF00);
}

TEST_F(IconImagesTest, AnApplicationIconIsFoundInTheIconTheme) {
  applications.sources["org.example.Files"].themeName = "folder";
  EXPECT_GT(coverage(icon(IconKind::application, "org.example.Files")).colours, 2);
}

TEST_F(IconImagesTest, FilesThatCannotBeTrustedGiveTheNeutralPicture) {
  const QImage neutral = icon(IconKind::imageFile, "/no/such/file.png");
  ASSERT_GT(coverage(neutral).opaquePixels, 0);
  const QString broken = write("broken.png", "\x89PNG\r\n\x1a\n and then nothing of the kind");
  const QString empty = write("empty.png", {});
  QImage wide(5000, 2, QImage::Format_RGB32);
  wide.fill(Qt::blue);
  ASSERT_TRUE(wide.save(folder.filePath("wide.png")));
  QFile huge(folder.filePath("huge.png"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize((16 << 20) + 1));
  for (const QString& path : {broken, empty, folder.filePath("wide.png"), huge.fileName(), folder.path(),
                              QStringLiteral("relative.png"), QStringLiteral("/dev/zero")}) {
    EXPECT_EQ(icon(IconKind::imageFile, path.toStdString()), neutral) << path.toStdString();
  }
}

TEST_F(IconImagesTest, AnImageFileIsFittedAndReadAnewWhenItChanges) {
  QImage picture(20, 10, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  const QString path = folder.filePath("picture.png");
  ASSERT_TRUE(picture.save(path));
  const QImage first = icon(IconKind::imageFile, path.toStdString());
  EXPECT_EQ(first.size(), QSize(kSide, kSide / 2));
  EXPECT_EQ(first.pixel(5, 5), qRgb(0, 0, 255));

  picture.fill(Qt::green);
  ASSERT_TRUE(picture.save(path));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime);
  file.close();
  EXPECT_EQ(icon(IconKind::imageFile, path.toStdString()).pixel(5, 5), qRgb(0, 255, 0));
}

}  // namespace
}  // namespace rondora

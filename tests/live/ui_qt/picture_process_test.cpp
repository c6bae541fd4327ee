#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <optional>

#include "desktop/wait.h"
#include "platform/posix/process_picture_decoder.h"
#include "platform/posix/serial_thread.h"
#include "platform/qt/event_turns.h"
#include "platform/qt/qt_main_queue.h"

namespace rondora {
namespace {

using Outcome = PictureResult::Outcome;
using Source = PictureRequest::Source;

QByteArray png(int side) {
  QImage image(side, side, QImage::Format_ARGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, "png"));
  return bytes;
}

/// 1 MiB of scans without data, each of which costs a pass over all 1024 x 1024 pixels.
QByteArray jpegOfEmptyScans() {
  QByteArray bytes =
      QByteArray::fromHex("FFD8FFDB004300") + QByteArray(64, '\1') + QByteArray::fromHex("FFC2000B080400040001011100");
  for (const char* table : {"00", "10"}) {
    bytes += QByteArray::fromHex("FFC40014") + QByteArray::fromHex(table) + '\1' + QByteArray(16, '\0');
  }
  bytes += QByteArray::fromHex("FFDA0008010100000000");
  const QByteArray scan = QByteArray::fromHex(
      "FFDA00080101"
      "00013F00");
  while (bytes.size() < (1 << 20) - 100) bytes += scan;
  return bytes + QByteArray::fromHex("FFD9");
}

/// A decoder whose processes are further ones of this test program.
class PictureProcessTest : public testing::Test {
 protected:
  PictureProcessTest() { makeDecoder(); }

  void makeDecoder() {
    decoder.reset();
    decoder.emplace("/proc/self/exe", mainQueue, std::make_unique<desktop::SerialThread>("pictures"));
  }
  Subscription request(Source source, const QByteArray& content, std::optional<PictureResult>& result) {
    return decoder->decode({source, 48, content.toStdString(), {}, {}},
                           [&result](const PictureResult& arrived) { result = arrived; });
  }
  PictureResult decode(Source source, const QByteArray& content) {
    std::optional<PictureResult> result;
    const Subscription decoding = request(source, content, result);
    EXPECT_FALSE(result) << "the caller waited";
    EXPECT_TRUE(handleEventsUntil([&] { return result.has_value(); }, live::kPatience));
    return result.value_or(PictureResult{});
  }
  QByteArray write(const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName().toUtf8();
  }
  /// A drawing that embeds a named pipe without a writer.
  QByteArray endlessDrawing() {
    mkfifo(folder.filePath("pipe").toLocal8Bit().constData(), 0600);
    return write("pipe.svg",
                 "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                 "width='9' height='9'><image width='9' height='9' xlink:href='" +
                     folder.filePath("pipe").toUtf8() + "'/></svg>");
  }

  QTemporaryDir folder;
  QtMainQueue mainQueue;
  std::optional<desktop::ProcessPictureDecoder> decoder;
};

TEST_F(PictureProcessTest, EachSourceGivesItsForm) {
  const PictureResult thumbnail = decode(Source::bytes, png(300));
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(thumbnail.bytes), "png").size(), QSize(48, 48));
  for (const Source source : {Source::imageFile, Source::siteFile}) {
    const PictureResult icon = decode(source, write("icon.png", png(20)));
    EXPECT_EQ(icon.outcome, Outcome::decoded);
    ASSERT_EQ(icon.bytes.size(), 48U * 48 * 4);
    EXPECT_EQ(icon.bytes.substr((24 * 48 + 24) * 4, 4), std::string("\0\0\xFF\xFF", 4));
  }
  EXPECT_EQ(decode(Source::imageFile, "/no/such/file").outcome, Outcome::unreadable);
  EXPECT_EQ(decode(Source::themeIcon, "no-such-icon").outcome, Outcome::unreadable);
}

TEST_F(PictureProcessTest, HostilePicturesAreGivenUp) {
  EXPECT_EQ(decode(Source::imageFile, endlessDrawing()).outcome, Outcome::gaveUp);
  EXPECT_EQ(decode(Source::bytes, jpegOfEmptyScans()).outcome, Outcome::gaveUp);
  const QByteArray entry = QByteArray::fromHex("00000100010000000000010020000000ffff16000000");
  EXPECT_NE(decode(Source::imageFile, write("large.ico", entry + png(8000))).outcome, Outcome::decoded);
  EXPECT_EQ(decode(Source::bytes, png(20)).outcome, Outcome::decoded) << "a later picture is not read";
}

TEST_F(PictureProcessTest, PicturesUnderWayCanBeGivenUp) {
  std::optional<PictureResult> unwanted;
  std::optional<PictureResult> wanted;
  const Subscription blocking = request(Source::imageFile, endlessDrawing(), wanted);
  request(Source::bytes, png(20), unwanted).reset();
  makeDecoder();  // ends the process without waiting for it
  EXPECT_EQ(decode(Source::bytes, png(20)).outcome, Outcome::decoded);
  EXPECT_FALSE(unwanted || wanted);
}

}  // namespace
}  // namespace rondora

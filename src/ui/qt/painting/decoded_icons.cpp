#include "ui/qt/painting/decoded_icons.h"

#include <QDeadlineTimer>
#include <QIcon>
#include <QStringList>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

constexpr qint64 kRetryAfter = 60'000;    // milliseconds; a theme may get the icon later
constexpr qint64 kUnusedAfter = 600'000;  // milliseconds
/// Some 900 icons at 96 pixels.
constexpr qsizetype kMaxBytes = 32 << 20;
/// Limits the requests of a document with countless icons.
constexpr qsizetype kMaxEntries = 4096;

qint64 millisecondsNow() { return QDeadlineTimer::current().deadline(); }

QString keyOf(const PictureRequest& request) {
  return QStringLiteral("%1|%2|%3")
      .arg(static_cast<int>(request.source))
      .arg(request.side)
      .arg(toQString(request.content));
}

std::vector<std::string> toTexts(const QStringList& list) {
  std::vector<std::string> texts;
  for (const QString& text : list) texts.push_back(text.toStdString());
  return texts;
}

IconTheme presentTheme() {
  return {QIcon::themeName().toStdString(), QIcon::fallbackThemeName().toStdString(),
          toTexts(QIcon::themeSearchPaths()), toTexts(QIcon::fallbackSearchPaths())};
}

QImage toImage(const PictureResult& result) {
  QImage image(result.width, result.height, QImage::Format_ARGB32_Premultiplied);
  const auto rowLength = static_cast<std::size_t>(result.width) * sizeof(QRgb);
  for (int y = 0; y < result.height; ++y) {
    std::memcpy(image.scanLine(y), result.bytes.data() + rowLength * static_cast<std::size_t>(y), rowLength);
  }
  return image;
}

}  // namespace

DecodedIcons::Icon DecodedIcons::find(PictureRequest wanted) {
  const QString key = keyOf(wanted);
  std::shared_ptr<Entry> entry = entries_.value(key);
  if (!entry) {
    const qsizetype bytes = qsizetype{wanted.side} * wanted.side * static_cast<qsizetype>(sizeof(QRgb));
    if (!decode_ || !makeRoomFor(bytes)) return {};
    entry = std::make_shared<Entry>();
    entry->maxBytes = bytes;
    entries_.insert(key, entry);
    request(key, std::move(wanted));
  } else if (isDue(*entry, wanted.version)) {
    request(key, std::move(wanted));
  }
  entry->usedAt = millisecondsNow();
  return {entry->image, entry->isUnderway && entry->failedAt == 0};
}

bool DecodedIcons::isDue(const Entry& entry, const std::string& version) const {
  return entry.version != version || (entry.failedAt != 0 && millisecondsNow() - entry.failedAt > kRetryAfter);
}

void DecodedIcons::request(const QString& key, PictureRequest wanted) {
  const std::shared_ptr<Entry> entry = entries_.value(key);
  entry->decoding.reset();
  entry->failedAt = entry->version == wanted.version ? millisecondsNow() : 0;
  entry->version = wanted.version;
  entry->isUnderway = true;
  if (wanted.source == PictureRequest::Source::themeIcon) wanted.theme = presentTheme();
  entry->decoding =
      decode_(std::move(wanted),
              weakSelf_.bind([key](DecodedIcons& self, const PictureResult& result) { self.arrived(key, result); }));
}

void DecodedIcons::arrived(const QString& key, const PictureResult& result) {
  const std::shared_ptr<Entry> entry = entries_.value(key);
  if (!entry) return;
  const bool isDecoded = result.outcome == PictureResult::Outcome::decoded;
  entry->isUnderway = false;
  entry->image = isDecoded ? toImage(result) : QImage();
  entry->failedAt = isDecoded ? 0 : millisecondsNow();
}

bool DecodedIcons::hasRoomFor(qsizetype bytes) const {
  for (const auto& entry : entries_) bytes += entry->maxBytes;
  return bytes <= kMaxBytes && entries_.size() < kMaxEntries;
}

/// Removes only icons that were not wanted for a while: removing others would make a document with more icons than fit
/// decode them again for ever.
bool DecodedIcons::makeRoomFor(qsizetype bytes) {
  if (hasRoomFor(bytes)) return true;
  const qint64 now = millisecondsNow();
  entries_.removeIf([now](QHash<QString, std::shared_ptr<Entry>>::iterator entry) {
    return now - entry.value()->usedAt > kUnusedAfter;
  });
  return hasRoomFor(bytes);
}

}  // namespace rondora

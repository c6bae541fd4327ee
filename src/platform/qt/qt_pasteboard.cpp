#include "platform/qt/qt_pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

constexpr const char* kTextType = "text/plain";

std::unique_ptr<QMimeData> makeMimeData(const std::vector<std::pair<QString, QByteArray>>& contents) {
  auto result = std::make_unique<QMimeData>();
  for (const auto& [type, bytes] : contents) {
    if (type == QLatin1String(kTextType)) {
      result->setText(QString::fromUtf8(bytes));
    } else {
      result->setData(type, bytes);
    }
  }
  return result;
}

QByteArray toBytes(std::string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

}  // namespace

void QtPasteboard::clearContents() {
  contents_.clear();
  isClearDue_ = true;
  const auto clear = [this] {
    if (std::exchange(isClearDue_, false)) QGuiApplication::clipboard()->clear();
  };
  QMetaObject::invokeMethod(&turns_, clear, Qt::QueuedConnection);
}

void QtPasteboard::setString(std::string_view text) { add(kTextType, toBytes(text)); }

void QtPasteboard::setData(std::string_view type, std::string_view bytes) { add(toQString(type), toBytes(bytes)); }

std::optional<std::string> QtPasteboard::data(std::string_view type) const {
  if (isClearDue_) return std::nullopt;
  const QMimeData* offered = QGuiApplication::clipboard()->mimeData();
  const QString mimeType = toQString(type);
  if (offered == nullptr || !offered->hasFormat(mimeType)) return std::nullopt;
  return offered->data(mimeType).toStdString();
}

void QtPasteboard::add(const QString& mimeType, QByteArray bytes) {
  std::erase_if(contents_, [&](const auto& entry) { return entry.first == mimeType; });
  contents_.emplace_back(mimeType, std::move(bytes));
  isClearDue_ = false;
  QGuiApplication::clipboard()->setMimeData(makeMimeData(contents_).release());
}

}  // namespace rondora

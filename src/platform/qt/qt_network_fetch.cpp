#include "platform/qt/qt_network_fetch.h"

#include <QNetworkAccessManager>
#include <QNetworkInterface>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

/// Size of the toolkit's read buffer in bytes.
constexpr qint64 kReadAhead = 64 << 10;

QNetworkRequest makeRequest(const FetchRequest& request) {
  QNetworkRequest result(QUrl(toQString(request.address), QUrl::StrictMode));
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  result.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  result.setRawHeader("User-Agent", "Mozilla/5.0 (compatible; Rondora)");
  // Without it the toolkit sends the user's language.
  result.setRawHeader("Accept-Language", "en");
  return result;
}

bool isWebAddress(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == "https" || url.scheme() == "http");
}

/// A request in progress. Deletes itself when it ends.
class Transfer : public QObject {
 public:
  Transfer(QNetworkAccessManager& manager, QNetworkReply* reply, const FetchRequest& request,
           NetworkFetch::Completion completion)
      : QObject(&manager), reply_(reply), maxBodySize_(request.maxBodySize), completion_(std::move(completion)) {
    reply_->setParent(this);
    reply_->setReadBufferSize(kReadAhead);
    connect(reply_, &QNetworkReply::readyRead, this, [this] {
      if (!readOn()) finish();
    });
    connect(reply_, &QNetworkReply::finished, this, &Transfer::finish);
    QTimer::singleShot(static_cast<int>(std::ceil(request.timeout * 1000)), this, &Transfer::giveUp);
  }

  void cancel() {
    completion_ = nullptr;
    end();
  }

 private:
  /// Returns false when the body exceeds the limit.
  bool readOn() {
    const auto allowed = static_cast<qint64>(maxBodySize_ - response_.body.size());
    const QByteArray bytes = reply_->read(allowed);
    response_.body.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    response_.isComplete = reply_->bytesAvailable() == 0;
    return response_.isComplete;
  }

  void finish() {
    const bool wasCutShort = !readOn();
    response_.status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // The toolkit reports HTTP error statuses as errors; with any other status an error means a truncated body or one
    // that cannot be decompressed.
    const bool cameThrough = reply_->error() == QNetworkReply::NoError || response_.status >= 400;
    if (response_.status == 0 || !(wasCutShort || cameThrough)) return giveUp();
    response_.location = reply_->rawHeader("Location").toStdString();
    complete(std::move(response_));
  }

  void giveUp() { complete(std::nullopt); }

  void complete(std::optional<FetchResponse> response) {
    const auto completion = std::exchange(completion_, nullptr);
    end();
    if (completion) completion(std::move(response));
  }

  /// Stops all signals; the memory is released on a later turn.
  void end() {
    reply_->disconnect(this);
    reply_->abort();
    deleteLater();
  }

  QNetworkReply* reply_;
  std::size_t maxBodySize_;
  NetworkFetch::Completion completion_;
  FetchResponse response_;
};

}  // namespace

QtNetworkFetch::QtNetworkFetch() = default;
QtNetworkFetch::~QtNetworkFetch() = default;

bool QtNetworkFetch::canReach(std::string_view host) const {
  QString name = toQString(host);
  name.removeIf([](QChar c) { return c == '[' || c == ']'; });
  if (name == "localhost" || QHostAddress(name).isLoopback()) return true;
  const auto interfaces = QNetworkInterface::allInterfaces();
  return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& interface) {
    const auto flags = interface.flags();
    return flags.testFlag(QNetworkInterface::IsRunning) && !flags.testFlag(QNetworkInterface::IsLoopBack) &&
           !interface.addressEntries().isEmpty();
  });
}

Subscription QtNetworkFetch::fetch(const FetchRequest& request, Completion completion) {
  if (!manager_) manager_ = std::make_unique<QNetworkAccessManager>();
  const QNetworkRequest asked = makeRequest(request);
  // Left alone, the toolkit would also fetch files and its own resources.
  QNetworkReply* reply = manager_->get(isWebAddress(asked.url()) ? asked : QNetworkRequest());
  const QPointer transfer = new Transfer(*manager_, reply, request, std::move(completion));
  return Subscription([transfer] {
    if (transfer) transfer->cancel();
  });
}

}  // namespace rondora

#include "platform/qt/qt_network_fetch.h"

#include <QHostAddress>
#include <QHostInfo>
#include <QList>
#include <QNetworkAccessManager>
#include <QNetworkInterface>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

/// Size of the toolkit's read buffer in bytes.
constexpr qint64 kReadAhead = 64 << 10;
constexpr qint64 kConnectionKnownFor = 1000;  // milliseconds

/// A request for `url` to one of its host's addresses: the name that the user or the site stated goes into the header
/// and, for https, into the handshake and the check of the certificate.
QNetworkRequest makeRequest(const QUrl& url, const QHostAddress& address) {
  QUrl target = url;
  target.setHost(address.toString());
  QNetworkRequest result(target);
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  result.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  // Its requests would name the address instead of the host.
  result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  result.setRawHeader("Host", url.authority(QUrl::FullyEncoded).toLatin1());
  result.setPeerVerifyName(url.host(QUrl::FullyEncoded));
  result.setRawHeader("User-Agent", "Mozilla/5.0 (compatible; Rondora)");
  // Without it the toolkit sends the user's language.
  result.setRawHeader("Accept-Language", "en");
  return result;
}

IpAddress toIpAddress(const QHostAddress& address) {
  const Q_IPV6ADDR bytes = address.toIPv6Address();  // maps version 4
  IpAddress result;
  std::copy(std::begin(bytes.c), std::end(bytes.c), result.begin());
  return result;
}

bool isWebAddress(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && (url.scheme() == "https" || url.scheme() == "http");
}

/// A request in progress: resolves the host's name and asks one address after the other until one answers. Deletes
/// itself when it ends.
class Transfer : public QObject {
 public:
  Transfer(QNetworkAccessManager& manager, FetchRequest request, NetworkFetch::Completion completion)
      : QObject(&manager),
        manager_(manager),
        request_(std::move(request)),
        url_(toQString(request_.address), QUrl::StrictMode),
        completion_(std::move(completion)) {
    QTimer::singleShot(static_cast<int>(std::ceil(request_.timeout * 1000)), this, &Transfer::giveUp);
    resolve();
  }

  void cancel() {
    completion_ = nullptr;
    end();
  }

 private:
  void resolve() {
    // The toolkit would also fetch files and its own resources.
    if (!isWebAddress(url_)) return later(&Transfer::giveUp);
    // A numeric host is not looked up: that would be a reverse lookup.
    if (const QHostAddress numeric(url_.host()); !numeric.isNull()) {
      permit({numeric});
      return later(&Transfer::connectToNext);
    }
    lookup_ = QHostInfo::lookupHost(url_.host(), this, [this](const QHostInfo& info) {
      permit(info.addresses());
      connectToNext();
    });
  }

  void later(void (Transfer::*step)()) { QTimer::singleShot(0, this, step); }

  void permit(const QList<QHostAddress>& addresses) {
    std::copy_if(addresses.begin(), addresses.end(), std::back_inserter(permitted_),
                 [this](const QHostAddress& address) { return request_.mayConnect(toIpAddress(address)); });
  }

  void connectToNext() {
    if (!completion_) return;
    if (permitted_.isEmpty()) return giveUp();
    reply_ = manager_.get(makeRequest(url_, permitted_.takeFirst()));
    reply_->setParent(this);
    reply_->setReadBufferSize(kReadAhead);
    connect(reply_, &QNetworkReply::readyRead, this, [this] {
      if (!readOn()) finish();
    });
    connect(reply_, &QNetworkReply::finished, this, &Transfer::finish);
  }

  /// Returns false when the body exceeds the limit.
  bool readOn() {
    const auto allowed = static_cast<qint64>(request_.maxBodySize - response_.body.size());
    const QByteArray bytes = reply_->read(allowed);
    response_.body.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    response_.isComplete = reply_->bytesAvailable() == 0;
    return response_.isComplete;
  }

  void finish() {
    const bool wasCutShort = !readOn();
    response_.status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (response_.status == 0 && !permitted_.isEmpty()) return tryNext();
    // The toolkit reports HTTP error statuses as errors; with any other status an error means a truncated body or one
    // that cannot be decompressed.
    const bool cameThrough = reply_->error() == QNetworkReply::NoError || response_.status >= 400;
    if (response_.status == 0 || !(wasCutShort || cameThrough)) return giveUp();
    response_.location = reply_->rawHeader("Location").toStdString();
    complete(std::move(response_));
  }

  void tryNext() {
    endReply();
    response_ = {};
    connectToNext();
  }

  void giveUp() { complete(std::nullopt); }

  void complete(std::optional<FetchResponse> response) {
    const auto completion = std::exchange(completion_, nullptr);
    end();
    if (completion) completion(std::move(response));
  }

  /// Stops all signals; the memory is released on a later turn.
  void end() {
    QHostInfo::abortHostLookup(lookup_);
    endReply();
    deleteLater();
  }

  void endReply() {
    QNetworkReply* reply = std::exchange(reply_, nullptr);
    if (reply == nullptr) return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
  }

  QNetworkAccessManager& manager_;
  FetchRequest request_;
  QUrl url_;
  NetworkFetch::Completion completion_;
  int lookup_ = -1;
  QList<QHostAddress> permitted_;  // not yet tried
  QNetworkReply* reply_ = nullptr;
  FetchResponse response_;
};

/// True when a network interface besides the loopback has an address.
bool hasConnection() {
  const auto interfaces = QNetworkInterface::allInterfaces();
  return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& interface) {
    const auto flags = interface.flags();
    return flags.testFlag(QNetworkInterface::IsRunning) && !flags.testFlag(QNetworkInterface::IsLoopBack) &&
           !interface.addressEntries().isEmpty();
  });
}

}  // namespace

QtNetworkFetch::QtNetworkFetch() = default;
QtNetworkFetch::~QtNetworkFetch() = default;

bool QtNetworkFetch::canReach(std::string_view host) const {
  QString name = toQString(host);
  name.removeIf([](QChar c) { return c == '[' || c == ']'; });
  if (name == "localhost" || QHostAddress(name).isLoopback()) return true;
  if (connectionKnown_.hasExpired()) {
    isConnected_ = hasConnection();
    connectionKnown_.setRemainingTime(kConnectionKnownFor);
  }
  return isConnected_;
}

Subscription QtNetworkFetch::fetch(const FetchRequest& request, Completion completion) {
  if (!manager_) manager_ = std::make_unique<QNetworkAccessManager>();
  const QPointer transfer = new Transfer(*manager_, request, std::move(completion));
  return Subscription([transfer] {
    if (transfer) transfer->cancel();
  });
}

}  // namespace rondora

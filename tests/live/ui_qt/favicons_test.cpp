#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "desktop/wait.h"
#include "icons/picture_sizes.h"
#include "live/ui_qt/web_server.h"
#include "platform/curl/curl_network_fetch.h"
#include "platform/posix/serial_thread.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/event_turns.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_network_fetch.h"
#include "ui/qt/painting/picture_thumbnail.h"

namespace rondora {
namespace {

/// A red square.
QByteArray picture(int side, const char* format) {
  QImage image(side, side, QImage::Format_ARGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format));
  return bytes;
}

/// Each system's port.
class WebTest : public testing::TestWithParam<bool> {
 protected:
  static constexpr double kLongTime = 60;

  /// The result of a request, which must complete once.
  std::optional<FetchResponse> get(const std::string& address, std::size_t maxBodySize = 1 << 20,
                                   double timeout = kLongTime) {
    int endings = 0;
    std::optional<FetchResponse> result;
    const Subscription request =
        network->fetch({address, maxBodySize, timeout, mayConnect}, [&](std::optional<FetchResponse> response) {
          ++endings;
          result = std::move(response);
        });
    EXPECT_EQ(endings, 0);
    EXPECT_TRUE(handleEventsUntil([&] { return endings > 0; }, live::kPatience)) << address;
    EXPECT_EQ(endings, 1);
    return result;
  }
  std::optional<FetchResponse> getPage(const WebServer::Behaviour& behaviour, std::size_t maxBodySize = 1 << 20,
                                       double timeout = kLongTime) {
    server.pages["/page"] = behaviour;
    return get(server.address("/page"), maxBodySize, timeout);
  }

  std::unique_ptr<NetworkFetch> makeNetwork() {
    if (GetParam()) return std::make_unique<QtNetworkFetch>();
    return std::make_unique<desktop::CurlNetworkFetch>(
        clock, mainQueue, [](auto label) { return std::make_unique<desktop::SerialThread>(std::string(label)); });
  }

  WebServer server;
  desktop::SystemClock clock;
  QtMainQueue mainQueue;
  std::unique_ptr<NetworkFetch> network = makeNetwork();
  std::function<bool(const IpAddress&)> mayConnect = [](const IpAddress&) { return true; };
};

TEST_P(WebTest, ReportsRepliesUnchanged) {
  const auto page = getPage(WebServer::answering("hello"));
  ASSERT_TRUE(page);
  EXPECT_EQ(page->status, 200);
  EXPECT_EQ(page->body, "hello");
  EXPECT_TRUE(page->isComplete);
  EXPECT_EQ(get(server.address("/none"))->status, 404);
  const auto moved =
      getPage(WebServer::saying("HTTP/1.1 302 There\r\nLocation: /there?x\r\nContent-Length: 0\r\n\r\n"));
  ASSERT_TRUE(moved);
  EXPECT_EQ(moved->status, 302);
  EXPECT_EQ(moved->location, "/there?x");
  EXPECT_FALSE(server.requests.contains("/there"));
}

TEST_P(WebTest, RequestsIdentifyNoUser) {
  qputenv("LC_ALL", "de_DE.UTF-8");
  qputenv("http_proxy", "http://127.0.0.1:1");
  const auto page = WebServer::answering("hello", "Set-Cookie: who=you; Path=/\r\n");
  getPage(page);
  getPage(WebServer::saying("HTTP/1.1 401 Who?\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n"));
  getPage(page);
  get(std::string(server.address("/page")).insert(sizeof "http://" - 1, "who:secret@"));
  qunsetenv("http_proxy");
  const QByteArray requests = server.requests.toLower();
  EXPECT_EQ(requests.count("get /page http/1.1"), 4);
  EXPECT_EQ(requests.count("\r\naccept-language: en\r\n"), 4);
  for (const char* header : {"cookie", "referer", "authorization", "origin:", "de-de"}) {
    EXPECT_FALSE(requests.contains(header)) << header;
  }
}

TEST_P(WebTest, ConnectsToPermittedAddressesUnderTheHostsName) {
  server.pages["/page"] = WebServer::answering("hello");
  const std::string port = server.address("").substr(server.address("").rfind(':'));
  int judged = 0;
  mayConnect = [&judged](const IpAddress&) { return ++judged < 0; };
  EXPECT_FALSE(get("http://localhost" + port + "/page"));
  EXPECT_FALSE(get(server.address("/page")));
  EXPECT_GE(judged, 2);
  EXPECT_EQ(server.requests, "");
  mayConnect = [](const IpAddress& address) { return address.back() == 1; };
  EXPECT_TRUE(get("http://localhost" + port + "/page"));
  EXPECT_TRUE(server.requests.toLower().contains("\r\nhost: localhost" + QByteArray::fromStdString(port) + "\r\n"));

  QByteArray greeting;
  QTcpServer secure;
  ASSERT_TRUE(secure.listen(QHostAddress::LocalHost));
  QObject::connect(&secure, &QTcpServer::newConnection, [&] {
    QTcpSocket* socket = secure.nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, [&greeting, socket] { greeting += socket->readAll(); });
  });
  const auto request = network->fetch(
      {"https://localhost:" + std::to_string(secure.serverPort()) + "/", 10, kLongTime, mayConnect}, [](auto) {});
  EXPECT_TRUE(handleEventsUntil([&] { return greeting.contains("localhost"); }, live::kPatience));
}

TEST_P(WebTest, BodiesEndAtTheLimit) {
  const auto endless = getPage(WebServer::dripping("HTTP/1.1 200 OK\r\n\r\n", QByteArray(100000, 'x'), 0), 300000);
  ASSERT_TRUE(endless);
  EXPECT_EQ(endless->body.size(), 300000u);
  EXPECT_FALSE(endless->isComplete);
  EXPECT_TRUE(handleEventsUntil([this] { return server.openConnections == 0; }, live::kPatience));

  // 64 MiB of zeros, compressed.
  QFile compressed(RONDORA_FIXTURES "/web/zeros.gz");
  ASSERT_TRUE(compressed.open(QIODevice::ReadOnly));
  const auto bomb = getPage(WebServer::answering(compressed.readAll(), "Content-Encoding: gzip\r\n"), 1000);
  EXPECT_TRUE(!bomb || (bomb->body.size() <= 1000 && !bomb->isComplete));
}

TEST_P(WebTest, LateBrokenAndForeignRepliesFail) {
  EXPECT_FALSE(getPage([](QTcpSocket&) {}, 1000, 0.2));
  EXPECT_FALSE(getPage(WebServer::dripping("HTTP/1.1 200 OK\r\n\r\n", "x", 10), 100000, 0.3));
  EXPECT_FALSE(getPage(WebServer::saying("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nshort")));
  EXPECT_FALSE(getPage(WebServer::saying("\x16\x03 no HTTP at all")));
  const std::string gone = WebServer().address("/");
  EXPECT_FALSE(get(gone));
  QTemporaryDir folder;
  QFile file(folder.filePath("secret"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("secret") > 0 && file.flush());
  EXPECT_FALSE(get("file://" + file.fileName().toStdString()));
  EXPECT_FALSE(get("no address"));
}

TEST_P(WebTest, RequestsCanBeCancelled) {
  server.pages["/page"] = [](QTcpSocket&) {};
  bool hasEnded = false;
  Subscription request =
      network->fetch({server.address("/page"), 10, kLongTime, mayConnect}, [&](auto) { hasEnded = true; });
  ASSERT_TRUE(
      handleEventsUntil([this] { return server.openConnections == 1 && !server.requests.isEmpty(); }, live::kPatience));
  request.reset();
  EXPECT_TRUE(handleEventsUntil([this] { return server.openConnections == 0; }, live::kPatience));
  EXPECT_FALSE(hasEnded);
  EXPECT_TRUE(network->canReach("127.0.0.1"));
  EXPECT_TRUE(network->canReach("[::1]"));
}

INSTANTIATE_TEST_SUITE_P(, WebTest, testing::Bool(), [](const auto& which) { return which.param ? "Qt" : "Curl"; });

TEST(PictureThumbnailTest, ScalesPixelPicturesOnly) {
  const auto read = [](const QByteArray& bytes) {
    const auto png =
        statesPlausibleSizes(bytes.toStdString()) ? pictureThumbnail(bytes.toStdString(), 96) : std::nullopt;
    return png ? QImage::fromData(QByteArray::fromStdString(*png), "PNG") : QImage();
  };
  EXPECT_EQ(read(picture(16, "png")).size(), QSize(16, 16));
  EXPECT_EQ(read(picture(300, "jpg")).size(), QSize(96, 96));
  EXPECT_EQ(read(picture(32, "ico")).pixel(5, 5), 0xFFFF0000);
  // An ICO with 16 (red), 48 (green) and 32 pixels (blue).
  QFile icons(RONDORA_FIXTURES "/web/three-sizes.ico");
  ASSERT_TRUE(icons.open(QIODevice::ReadOnly));
  const QImage chosen = read(icons.readAll());
  EXPECT_EQ(chosen.size(), QSize(48, 48));
  EXPECT_EQ(chosen.pixel(20, 20), 0xFF00FF00);

  const QByteArray png = picture(300, "png");
  EXPECT_TRUE(read(png.left(png.size() / 2)).isNull());
  EXPECT_TRUE(read(picture(1500, "png")).isNull());
  EXPECT_TRUE(read("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>").isNull());
  EXPECT_TRUE(read("<html>").isNull());
  EXPECT_TRUE(read({}).isNull());
  for (const QByteArray& tooMuch : {picture(1500, "png"), QByteArray(png).insert(33, "\x40\x00\x00\x00tEXt", 8)}) {
    const QByteArray icon = QByteArray::fromHex("00000100010030300000010020000000ffff16000000") + tooMuch;
    EXPECT_FALSE(statesPlausibleSizes(tooMuch.toStdString()) || statesPlausibleSizes(icon.toStdString()));
  }
}

}  // namespace
}  // namespace rondora

#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace rondora {

/// A local web server with scripted answers, well-formed or not.
class WebServer {
 public:
  using Behaviour = std::function<void(QTcpSocket&)>;

  WebServer() {
    QObject::connect(&server_, &QTcpServer::newConnection, &server_,
                     [this] { serve(*server_.nextPendingConnection()); });
    server_.listen(QHostAddress::LocalHost);
  }

  std::string address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
  }
  /// Sends these bytes, headers included, and closes.
  static Behaviour saying(QByteArray bytes) {
    return [bytes = std::move(bytes)](QTcpSocket& socket) {
      socket.write(bytes);
      socket.disconnectFromHost();
    };
  }
  static Behaviour answering(const QByteArray& body, const QByteArray& headers = {}) {
    return saying("HTTP/1.1 200 OK\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
                  body);
  }
  /// Sends `start`, then `more` at that interval for ever.
  static Behaviour dripping(const QByteArray& start, const QByteArray& more, int milliseconds) {
    return [=](QTcpSocket& socket) {
      socket.write(start);
      auto* timer = new QTimer(&socket);
      QObject::connect(timer, &QTimer::timeout, &socket, [&socket, more] {
        if (socket.isOpen() && socket.bytesToWrite() < more.size()) socket.write(more);
      });
      timer->start(milliseconds);
    };
  }

  std::map<std::string, Behaviour> pages;
  /// All requests, with their headers.
  QByteArray requests;
  int openConnections = 0;

 private:
  void serve(QTcpSocket& socket) {
    ++openConnections;
    QObject::connect(&socket, &QTcpSocket::disconnected, &server_, [this, &socket] {
      --openConnections;
      socket.deleteLater();
    });
    QObject::connect(&socket, &QTcpSocket::readyRead, &server_, [this, &socket] {
      const QByteArray request = socket.peek(1 << 16);
      if (!request.contains("\r\n\r\n")) return;
      requests += socket.readAll();
      const auto found = pages.find(request.split(' ').value(1).toStdString());
      if (found == pages.end()) return saying("HTTP/1.1 404 No\r\nContent-Length: 0\r\n\r\n")(socket);
      found->second(socket);
    });
  }

  QTcpServer server_;
};

}  // namespace rondora

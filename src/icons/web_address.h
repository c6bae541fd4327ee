#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// An absolute http or https address of at most 2048 bytes. It never holds a user name, a password or a fragment.
class WebAddress {
 public:
  /// Nothing when the text is not such an address. Tolerates surrounding blanks and a missing path.
  static std::optional<WebAddress> parse(std::string_view text);
  /// Resolves a reference against this address (RFC 3986, section 5.2); nothing when the result is not http or https.
  std::optional<WebAddress> resolve(std::string_view reference) const;

  bool isSecure() const { return isSecure_; }
  /// In lower case, without the port and without the root's dot; characters that stand for others are folded, as a
  /// resolver folds them.
  const std::string& host() const { return host_; }
  std::uint16_t port() const { return port_; }
  /// True for the default ports of http and https.
  bool hasUsualPort() const;
  /// Path and query.
  const std::string& path() const { return path_; }
  /// Scheme, host and port, without the scheme's default port.
  std::string origin() const;
  std::string text() const { return origin() + path_; }
  /// The front page of the same origin.
  WebAddress root() const;

  friend bool operator==(const WebAddress&, const WebAddress&) = default;

 private:
  static std::optional<WebAddress> withinLimit(WebAddress address);

  bool isSecure_ = true;
  std::string host_;
  std::uint16_t port_ = 0;
  std::string path_ = "/";
};

}  // namespace rondora

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// An absolute http or https address. It never holds a user name, a password or a fragment.
class WebAddress {
 public:
  /// Nothing when the text is no such address. Blanks around it and a missing path are forgiven.
  static std::optional<WebAddress> parse(std::string_view text);
  /// Where a link on the page at this address leads to (RFC 3986, section 5.2); nothing when it leaves the web.
  std::optional<WebAddress> resolve(std::string_view reference) const;

  bool isSecure() const { return isSecure_; }
  /// In lower case, without the port.
  const std::string& host() const { return host_; }
  /// Path and query.
  const std::string& path() const { return path_; }
  /// Scheme, host and port, the latter unless it is the scheme's own.
  std::string origin() const;
  std::string text() const { return origin() + path_; }
  /// The front page of the same origin.
  WebAddress root() const;

  friend bool operator==(const WebAddress&, const WebAddress&) = default;

 private:
  bool isSecure_ = true;
  std::string host_;
  std::uint16_t port_ = 0;
  std::string path_ = "/";
};

}  // namespace rondora

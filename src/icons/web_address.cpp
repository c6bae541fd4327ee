#include "icons/web_address.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr std::size_t kMaxAddressLength = 2048;
constexpr std::size_t kMaxHostLength = 253;  // RFC 1035, without the root's dot
constexpr std::uint16_t kPort = 80;
constexpr std::uint16_t kSecurePort = 443;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Lower case; empty when the text does not begin with a scheme.
std::string schemeOf(std::string_view text) {
  const auto end = text.find_first_of(":/?#");
  if (end == std::string_view::npos || text[end] != ':' || !isLetter(text.front())) return {};
  const std::string_view scheme = text.substr(0, end);
  const bool isScheme = std::all_of(scheme.begin(), scheme.end(), [](char c) {
    return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
  });
  return isScheme ? lowerCased(scheme) : std::string();
}

/// Removes line ends and tabs, as browsers do.
std::string cleaned(std::string_view text) {
  std::string result(trimmed(text));
  std::erase_if(result, [](char c) { return c == '\n' || c == '\r' || c == '\t'; });
  if (const auto fragment = result.find('#'); fragment != std::string::npos) result.resize(fragment);
  return result;
}

bool isHost(std::string_view host) {
  if (host.empty() || host.size() > kMaxHostLength || !isValidUtf8(host)) return false;
  if (host.front() == '[') {
    const std::string_view inside = host.substr(1, host.size() - 2);
    return host.back() == ']' && !inside.empty() && inside.find_first_not_of("0123456789abcdefABCDEF:.") == inside.npos;
  }
  return std::all_of(host.begin(), host.end(), [](char c) {
    return isLetter(c) || isDigit(c) || c == '-' || c == '.' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
  });
}

std::string folded(std::string_view host) {
  constexpr std::string_view kIdeographicStop = "\u3002";
  std::string result = lowerCased(compatibilityFolded(host));
  for (auto at = result.find(kIdeographicStop); at != result.npos; at = result.find(kIdeographicStop, at)) {
    result.replace(at, kIdeographicStop.size(), ".");
  }
  return result;
}

/// As resolvers read it, without the root's dot; nothing when it is no host.
std::optional<std::string> normalizedHost(std::string_view text) {
  if (!isHost(text)) return std::nullopt;
  std::string host = folded(text);
  if (host.ends_with('.')) host.pop_back();
  const bool hasEmptyLabel = host.starts_with('.') || host.ends_with('.') || host.find("..") != host.npos;
  if (hasEmptyLabel || !isHost(host) || folded(host) != host) return std::nullopt;
  return host;
}

/// `authority` comes without user information.
std::size_t hostLength(std::string_view authority) {
  if (!authority.starts_with('[')) return std::min(authority.find(':'), authority.size());
  const auto end = authority.find(']');
  return end == authority.npos ? 0 : end + 1;
}

std::optional<std::uint16_t> portOf(std::string_view text, std::uint16_t standard) {
  if (text.empty()) return standard;
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size() || port == 0) return std::nullopt;
  return port;
}

std::string percentEncoded(std::string_view path) {
  constexpr std::string_view kUnsafe = " \"<>\\^`{|}";
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string result;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F && kUnsafe.find(c) == kUnsafe.npos) {
      result += c;
    } else {
      result += {'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
    }
  }
  return result;
}

/// An absolute path with its query, without "." and ".." segments.
std::string withoutDotSegments(std::string_view path) {
  const auto queryStart = std::min(path.find('?'), path.size());
  const std::string_view query = path.substr(queryStart);
  std::string_view rest = path.substr(1, queryStart - 1);
  std::vector<std::string_view> kept;
  while (true) {
    const auto end = std::min(rest.find('/'), rest.size());
    const std::string_view segment = rest.substr(0, end);
    const bool isLast = end == rest.size();
    if (segment == "..") {
      if (!kept.empty()) kept.pop_back();
    } else if (segment != ".") {
      kept.push_back(segment);
    }
    if (isLast && (segment == "." || segment == "..")) kept.emplace_back();
    if (isLast) break;
    rest.remove_prefix(end + 1);
  }
  std::string result;
  for (const std::string_view segment : kept) result.append("/").append(segment);
  return result.append(query);
}

}  // namespace

/// Quoting and resolving lengthen an address.
std::optional<WebAddress> WebAddress::withinLimit(WebAddress address) {
  if (address.text().size() > kMaxAddressLength) return std::nullopt;
  return address;
}

std::optional<WebAddress> WebAddress::parse(std::string_view text) {
  const std::string address = cleaned(text);
  const std::string scheme = schemeOf(address);
  if (address.size() > kMaxAddressLength || (scheme != "http" && scheme != "https")) return std::nullopt;
  std::string_view rest = std::string_view(address).substr(scheme.size() + 1);
  if (!rest.starts_with("//")) return std::nullopt;
  rest.remove_prefix(2);
  std::string_view authority = rest.substr(0, rest.find_first_of("/?"));
  rest.remove_prefix(authority.size());
  if (const auto user = authority.rfind('@'); user != authority.npos) authority.remove_prefix(user + 1);
  const std::string_view host = authority.substr(0, hostLength(authority));
  authority.remove_prefix(host.size());
  const auto normalized = normalizedHost(host);
  if (!normalized || (!authority.empty() && authority.front() != ':')) return std::nullopt;
  if (!authority.empty()) authority.remove_prefix(1);

  WebAddress result;
  result.isSecure_ = scheme == "https";
  result.host_ = *normalized;
  const auto port = portOf(authority, result.isSecure_ ? kSecurePort : kPort);
  if (!port) return std::nullopt;
  result.port_ = *port;
  const bool hasPath = rest.starts_with('/');
  result.path_ = withoutDotSegments(percentEncoded(hasPath ? std::string(rest) : "/" + std::string(rest)));
  return withinLimit(std::move(result));
}

std::optional<WebAddress> WebAddress::resolve(std::string_view reference) const {
  const std::string link = cleaned(reference);
  if (link.size() > kMaxAddressLength) return std::nullopt;
  if (!schemeOf(link).empty()) return parse(link);
  if (link.starts_with("//")) return parse((isSecure_ ? "https:" : "http:") + link);
  if (link.empty()) return *this;
  const std::string here = path_.substr(0, path_.find('?'));
  WebAddress result = *this;
  if (link.front() == '/') {
    result.path_ = withoutDotSegments(percentEncoded(link));
  } else if (link.front() == '?') {
    result.path_ = here + percentEncoded(link);
  } else {
    result.path_ = withoutDotSegments(here.substr(0, here.rfind('/') + 1) + percentEncoded(link));
  }
  return withinLimit(std::move(result));
}

std::string WebAddress::origin() const {
  std::string result = (isSecure_ ? "https://" : "http://") + host_;
  if (port_ != (isSecure_ ? kSecurePort : kPort)) result += ":" + std::to_string(port_);
  return result;
}

bool WebAddress::hasUsualPort() const { return port_ == kPort || port_ == kSecurePort; }

WebAddress WebAddress::root() const {
  WebAddress result = *this;
  result.path_ = "/";
  return result;
}

}  // namespace rondora

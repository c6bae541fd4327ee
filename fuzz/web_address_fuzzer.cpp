#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "icons/web_address.h"
#include "require.h"

// The first line is an address, the rest a link on its page. Accepted addresses are safe in a request and read back as
// themselves.

namespace rondora {
namespace {

bool isPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c > 0x20 && c < 0x7F; });
}

void checkAddress(const WebAddress& address) {
  require(WebAddress::parse(address.text()) == address, "an address reads back as itself");
  require(address.path().starts_with('/'), "the path is absolute");
  require(isPrintable(address.path()), "the path needs no quoting");
  require(address.path().find('#') == std::string_view::npos, "there is no fragment");
  require(address.host().find_first_of("/?#@ \r\n") == std::string::npos, "the host ends where the address says");
  // A reference that begins with two slashes names a host.
  const bool isPathReference = !address.path().starts_with("//");
  require(!isPathReference || address.resolve(address.path()) == address, "its own path leads to itself");
  require(address.root().origin() == address.origin(), "the front page has the same origin");
}

void check(std::string_view bytes) {
  const std::size_t end = std::min(bytes.find('\n'), bytes.size());
  const std::optional<WebAddress> address = WebAddress::parse(bytes.substr(0, end));
  if (!address) return;
  checkAddress(*address);
  if (end == bytes.size()) return;
  if (const auto linked = address->resolve(bytes.substr(end + 1))) checkAddress(*linked);
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::check({reinterpret_cast<const char*>(data), size});
  return 0;
}

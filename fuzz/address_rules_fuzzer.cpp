#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "icons/address_rules.h"
#include "icons/favicon_lookup.h"
#include "icons/web_address.h"
#include "require.h"

// The first sixteen bytes are an address that a name resolves to, the rest is a host as a page may write it.

namespace rondora {
namespace {

void checkAddress(const IpAddress& address) {
  require(!isPublicAddress(address) || !isPrivateAddress(address), "an address is not both public and private");
  require(mayConnect("example.org", address) == isPublicAddress(address), "a public name leads to public addresses");
  require(!isPublicAddress(address) || mayConnect("localhost", address), "a local name may lead to public addresses");
  IpAddress mapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
  IpAddress translated{0, 0x64, 0xFF, 0x9B};
  std::copy(address.begin() + 12, address.end(), mapped.begin() + 12);
  std::copy(address.begin() + 12, address.end(), translated.begin() + 12);
  require(isPublicAddress(mapped) == isPublicAddress(translated),
          "a translated address is judged as the address itself");
}

void checkHost(std::string_view text) {
  const auto address = WebAddress::parse("https://" + std::string(text) + "/");
  if (!address) return;
  const std::string& host = address->host();
  require(!host.ends_with('.'), "the root's dot is gone");
  require(WebAddress::parse("https://" + host + "/")->host() == host, "a host reads back as itself");
  const auto site = WebAddress::parse("https://example.org/").value();
  require(!FaviconLookup::mayFollow(site, *address) || isPublicName(host) || host == site.host(),
          "a public site leads to public names");
}

void check(std::string_view bytes) {
  IpAddress address{};
  const std::size_t length = std::min(address.size(), bytes.size());
  std::copy_n(bytes.begin(), length, address.begin());
  checkAddress(address);
  checkHost(bytes.substr(length));
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::check({reinterpret_cast<const char*>(data), size});
  return 0;
}

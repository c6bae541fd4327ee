#include "platform/curl/curl_request.h"

#include <arpa/inet.h>
#include <curl/curl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "base/unicode.h"

namespace rondora::desktop {
namespace {

constexpr IpAddress kMappedVersion4 = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
constexpr std::size_t kMappedPrefix = 12;
constexpr std::string_view kLocation = "location:";

template <auto free>
struct Freeing {
  template <class T>
  void operator()(T* object) const {
    free(object);
  }
};
using Address = std::unique_ptr<CURLU, Freeing<curl_url_cleanup>>;
using Handle = std::unique_ptr<CURL, Freeing<curl_easy_cleanup>>;
using List = std::unique_ptr<curl_slist, Freeing<curl_slist_free_all>>;
using Text = std::unique_ptr<char, Freeing<curl_free>>;
using Found = std::unique_ptr<addrinfo, Freeing<freeaddrinfo>>;

Address parse(const std::string& text) {
  Address address(curl_url());
  if (address && curl_url_set(address.get(), CURLUPART_URL, text.c_str(), 0) != CURLUE_OK) address.reset();
  return address;
}

std::string part(const Address& address, CURLUPart which) {
  char* text = nullptr;
  if (curl_url_get(address.get(), which, &text, CURLU_DEFAULT_PORT) != CURLUE_OK) return {};
  return Text(text).get();
}

std::string withoutBrackets(const std::string& host) {
  return host.starts_with('[') ? host.substr(1, host.size() - 2) : host;
}

std::optional<IpAddress> toIpAddress(const sockaddr& from) {
  IpAddress address = kMappedVersion4;
  if (from.sa_family == AF_INET) {
    std::memcpy(&address[kMappedPrefix], &reinterpret_cast<const sockaddr_in&>(from).sin_addr, sizeof(in_addr));
  } else if (from.sa_family == AF_INET6) {
    std::memcpy(address.data(), &reinterpret_cast<const sockaddr_in6&>(from).sin6_addr, address.size());
  } else {
    return std::nullopt;
  }
  return address;
}

/// The library's wish to connect to this address, whatever the host and its port.
std::string connectTo(const IpAddress& address) {
  const bool isVersion4 = std::equal(kMappedVersion4.begin(), kMappedVersion4.begin() + kMappedPrefix, address.begin());
  char text[INET6_ADDRSTRLEN] = {};
  inet_ntop(isVersion4 ? AF_INET : AF_INET6, &address[isVersion4 ? kMappedPrefix : 0], text, sizeof text);
  return isVersion4 ? "::" + std::string(text) + ":" : "::[" + std::string(text) + "]:";
}

/// A reply as it arrives.
struct Arriving {
  FetchResponse response;
  std::size_t maxBodySize;
  const std::atomic<bool>& isCancelled;
};

std::size_t takeBody(const char* bytes, std::size_t /*one*/, std::size_t count, void* to) {
  auto& [response, maxBodySize, isCancelled] = *static_cast<Arriving*>(to);
  const std::size_t taken = std::min(count, maxBodySize - response.body.size());
  response.body.append(bytes, taken);
  response.isComplete = taken == count;
  return taken;  // fewer than all end the transfer
}

std::size_t takeHeader(const char* bytes, std::size_t /*one*/, std::size_t count, void* to) {
  const std::string_view line(bytes, count);
  const std::size_t first = line.find_first_not_of(" \t", kLocation.size());
  if (first == line.npos || lowerCased(line.substr(0, kLocation.size())) != kLocation) return count;
  const std::size_t end = line.find_last_not_of("\r\n \t") + 1;
  if (end > first) static_cast<Arriving*>(to)->response.location = line.substr(first, end - first);
  return count;
}

int reportProgress(void* to, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return static_cast<Arriving*>(to)->isCancelled ? 1 : 0;
}

std::optional<FetchResponse> askOne(const Address& target, const FetchRequest& request, const IpAddress& address,
                                    Arriving& arriving) {
  const Handle handle(curl_easy_init());
  if (!handle) return std::nullopt;
  const List connection(curl_slist_append(nullptr, connectTo(address).c_str()));
  const List headers(curl_slist_append(nullptr, "Accept-Language: en"));
  const auto set = [&handle](CURLoption option, auto value) { curl_easy_setopt(handle.get(), option, value); };
  set(CURLOPT_CURLU, target.get());
  set(CURLOPT_CONNECT_TO, connection.get());
  set(CURLOPT_HTTPHEADER, headers.get());
  set(CURLOPT_USERAGENT, "Mozilla/5.0 (compatible; Rondora)");
  set(CURLOPT_ACCEPT_ENCODING, "");  // all that the library decodes
  set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  set(CURLOPT_PROXY, "");  // it would resolve the name itself
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_TIMEOUT_MS, static_cast<long>(std::ceil(request.timeout * 1000)));
  set(CURLOPT_WRITEFUNCTION, &takeBody);
  set(CURLOPT_WRITEDATA, static_cast<void*>(&arriving));
  set(CURLOPT_HEADERFUNCTION, &takeHeader);
  set(CURLOPT_HEADERDATA, static_cast<void*>(&arriving));
  set(CURLOPT_NOPROGRESS, 0L);
  set(CURLOPT_XFERINFOFUNCTION, &reportProgress);
  set(CURLOPT_XFERINFODATA, static_cast<void*>(&arriving));
  const CURLcode result = curl_easy_perform(handle.get());
  long status = 0;
  curl_easy_getinfo(handle.get(), CURLINFO_RESPONSE_CODE, &status);
  arriving.response.status = static_cast<int>(status);
  const bool wasCutShort = result == CURLE_WRITE_ERROR && !arriving.response.isComplete;
  if (status == 0 || (result != CURLE_OK && !wasCutShort)) return std::nullopt;
  return std::move(arriving.response);
}

}  // namespace

std::optional<WebHost> webHost(const std::string& text) {
  const Address address = parse(text);
  if (!address) return std::nullopt;
  const std::string scheme = part(address, CURLUPART_SCHEME);
  if (scheme != "http" && scheme != "https") return std::nullopt;
  return WebHost{withoutBrackets(part(address, CURLUPART_HOST)), part(address, CURLUPART_PORT)};
}

std::vector<IpAddress> resolve(const WebHost& host) {
  addrinfo wish = {};
  wish.ai_socktype = SOCK_STREAM;
  addrinfo* first = nullptr;
  if (getaddrinfo(host.name.c_str(), host.port.c_str(), &wish, &first) != 0) return {};
  const Found found(first);
  std::vector<IpAddress> addresses;
  for (const addrinfo* each = first; each != nullptr; each = each->ai_next) {
    if (const auto address = toIpAddress(*each->ai_addr)) addresses.push_back(*address);
  }
  return addresses;
}

std::optional<FetchResponse> perform(const FetchRequest& request, const std::vector<IpAddress>& addresses,
                                     const std::atomic<bool>& isCancelled) {
  const Address target = parse(request.address);
  if (!target) return std::nullopt;
  for (const CURLUPart secret : {CURLUPART_USER, CURLUPART_PASSWORD}) {
    curl_url_set(target.get(), secret, nullptr, 0);
  }
  for (const IpAddress& address : addresses) {
    if (isCancelled) return std::nullopt;
    Arriving arriving{{}, request.maxBodySize, isCancelled};
    auto response = askOne(target, request, address, arriving);
    if (response || arriving.response.status != 0) return response;
  }
  return std::nullopt;
}

}  // namespace rondora::desktop

#include "platform/curl/curl_network_fetch.h"

#include <curl/curl.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/curl/curl_request.h"

namespace rondora::desktop {
namespace {

constexpr double kConnectionKnownFor = 1;  // second
constexpr std::uint32_t kLinkLocal = 169U << 24 | 254U << 16;

/// Addresses that an interface gives itself, which tunnels and radio links have without a network too, do not count.
bool leadsElsewhere(const sockaddr& address) {
  if (address.sa_family == AF_INET) {
    const std::uint32_t number = ntohl(reinterpret_cast<const sockaddr_in&>(address).sin_addr.s_addr);
    return (number & IN_CLASSB_NET) != kLinkLocal;
  }
  if (address.sa_family != AF_INET6) return false;
  return !IN6_IS_ADDR_LINKLOCAL(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
}

/// True when a network interface besides the loopback has an address.
bool hasConnection() {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return true;
  bool isFound = false;
  for (const ifaddrs* each = first; each != nullptr && !isFound; each = each->ifa_next) {
    const bool isRunning = (each->ifa_flags & IFF_RUNNING) != 0 && (each->ifa_flags & IFF_LOOPBACK) == 0;
    isFound = isRunning && each->ifa_addr != nullptr && leadsElsewhere(*each->ifa_addr);
  }
  freeifaddrs(first);
  return isFound;
}

}  // namespace

/// On the main thread, but for what the members say.
struct CurlNetworkFetch::Transfer {
  /// Constant, but for `mayConnect` read by the queue too.
  FetchRequest request;
  Completion completion;
  Lane& lane;
  /// Of one thread at a time.
  std::vector<IpAddress> addresses = {};
  /// Read by the queue.
  std::atomic<bool> isOver = false;
  Subscription deadline = {};

  void end(std::optional<FetchResponse> response) {
    const Completion ended = std::exchange(completion, nullptr);
    isOver = true;
    deadline.reset();
    if (ended) ended(std::move(response));
  }
};

void CurlNetworkFetch::Lane::async(SerialQueue::Work work) {
  ++waiting;
  queue->async([this, work = std::move(work)] {
    work();
    --waiting;
  });
}

CurlNetworkFetch::CurlNetworkFetch(const Clock& clock, MainQueue& mainQueue, const MakeQueue& makeQueue)
    : clock_(clock), mainQueue_(mainQueue) {
  for (Lane& lane : lanes_) lane.queue = makeQueue("Rondora.Network");
}

CurlNetworkFetch::~CurlNetworkFetch() = default;

bool CurlNetworkFetch::canReach(std::string_view host) const {
  if (host == "localhost" || host.starts_with("127.") || host == "[::1]") return true;
  if (!connectionReadAt_ || clock_.uptime() - *connectionReadAt_ > kConnectionKnownFor) {
    isConnected_ = hasConnection();
    connectionReadAt_ = clock_.uptime();
  }
  return isConnected_;
}

Subscription CurlNetworkFetch::fetch(const FetchRequest& request, Completion completion) {
  // Not at the start of the program: it loads what secures connections.
  [[maybe_unused]] static const CURLcode kInitialized = curl_global_init(CURL_GLOBAL_DEFAULT);
  const auto idlest = std::min_element(lanes_.begin(), lanes_.end(),
                                       [](const Lane& one, const Lane& other) { return one.waiting < other.waiting; });
  const Ref transfer(new Transfer{request, std::move(completion), *idlest});
  transfer->deadline = mainQueue_.workItem(request.timeout, [weak = std::weak_ptr(transfer)] {
    if (const auto late = weak.lock()) late->end(std::nullopt);
  });
  lookUp(transfer);
  return Subscription([transfer] {
    transfer->completion = nullptr;
    transfer->end(std::nullopt);
  });
}

void CurlNetworkFetch::lookUp(const Ref& transfer) {
  auto known = weakSelf_.bind([transfer](CurlNetworkFetch& self) { self.ask(transfer); });
  transfer->lane.async([&mainQueue = mainQueue_, transfer, known = std::move(known)] {
    if (transfer->isOver) return;
    if (const auto host = webHost(transfer->request.address)) transfer->addresses = resolve(*host);
    mainQueue.async(known);
  });
}

void CurlNetworkFetch::ask(const Ref& transfer) {
  if (transfer->isOver) return;
  std::erase_if(transfer->addresses, [&](const IpAddress& address) { return !transfer->request.mayConnect(address); });
  if (transfer->addresses.empty()) return transfer->end(std::nullopt);
  transfer->lane.async([&mainQueue = mainQueue_, transfer] {
    auto response = perform(transfer->request, transfer->addresses, transfer->isOver);
    mainQueue.async([transfer, response = std::move(response)] { transfer->end(response); });
  });
}

}  // namespace rondora::desktop

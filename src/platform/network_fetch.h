#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/observable.h"

namespace rondora {

/// Most significant byte first; an address of version 4 in its mapped form, ::ffff:a.b.c.d.
using IpAddress = std::array<std::uint8_t, 16>;

struct FetchRequest {
  /// An absolute http or https address.
  std::string address;
  /// Size limit of the body in bytes; loading stops there.
  std::size_t maxBodySize = 0;
  /// Limit in seconds for the whole request.
  double timeout = 0;
  /// Decides on each address that the host's name resolves to; the request connects to no other. Never empty.
  std::function<bool(const IpAddress&)> mayConnect;
};

struct FetchResponse {
  int status = 0;
  /// The header "Location"; empty when there is none.
  std::string location;
  /// Decoded, at most `maxBodySize` bytes.
  std::string body;
  /// False when the body is truncated.
  bool isComplete = true;
};

/// HTTP GET. Redirections are reported, not followed. Requests carry no cookies, credentials, referrer or language of
/// the user. An untrusted certificate is a failure. Main thread.
class NetworkFetch {
 public:
  /// Called once, on a later turn of the main queue; empty on failure and on timeout.
  using Completion = std::function<void(std::optional<FetchResponse>)>;

  virtual ~NetworkFetch() = default;

  /// False when the host is certainly unreachable, for example without any network connection. Does not block.
  virtual bool canReach(std::string_view host) const = 0;
  /// Resetting or destroying the result cancels the request; `completion` is then not called.
  [[nodiscard]] virtual Subscription fetch(const FetchRequest& request, Completion completion) = 0;
};

}  // namespace rondora

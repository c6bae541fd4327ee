#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/observable.h"

namespace rondora {

struct FetchRequest {
  /// An absolute http or https address.
  std::string address;
  /// Bytes that are wanted of the body; nothing beyond them is loaded.
  std::size_t largestBody = 0;
  /// Seconds for the whole of it.
  double timeout = 0;
};

struct FetchResponse {
  int status = 0;
  /// The header "Location"; empty when there is none.
  std::string location;
  /// Decoded, at most `largestBody` bytes.
  std::string body;
  /// False when the body goes on.
  bool isComplete = true;
};

/// Gets resources from the web, one request an answer: redirections are reported, not followed. What goes out tells no
/// more than that somebody asks: no cookies, no credentials, no referrer, no language of the user. A certificate that
/// cannot be trusted is no answer. Main thread.
class NetworkFetch {
 public:
  /// Called once, on a later turn of the main queue; nothing when there was no answer in time.
  using Completion = std::function<void(std::optional<FetchResponse>)>;

  virtual ~NetworkFetch() = default;

  /// False when it is certain that nothing leads to the host now, such as with no connection at all. Returns at once.
  virtual bool canReach(std::string_view host) const = 0;
  /// Ending the result gives the request up; `completion` is not called then.
  [[nodiscard]] virtual Subscription fetch(const FetchRequest& request, Completion completion) = 0;
};

}  // namespace rondora

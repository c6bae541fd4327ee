#pragma once

#include "platform/main_queue.h"
#include "platform/network_fetch.h"

namespace rondora::macos {

/// The system's own client for the web resolves names by itself and asks nobody which of the addresses it may connect
/// to, which requests for favicons must. So nothing is fetched, and items keep the icons that stand in.
class NoNetworkFetch final : public NetworkFetch {
 public:
  explicit NoNetworkFetch(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

  bool canReach(std::string_view /*host*/) const override { return false; }
  [[nodiscard]] Subscription fetch(const FetchRequest& /*request*/, Completion completion) override {
    return mainQueue_.workItem(0, [completion = std::move(completion)] { completion(std::nullopt); });
  }

 private:
  MainQueue& mainQueue_;
};

}  // namespace rondora::macos

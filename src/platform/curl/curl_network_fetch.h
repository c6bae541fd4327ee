#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "base/weak_self.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/network_fetch.h"
#include "platform/serial_queue.h"

namespace rondora::desktop {

/// Requests by libcurl, on threads of their own. Its destructor waits for a name that is being looked up.
class CurlNetworkFetch final : public NetworkFetch {
 public:
  using MakeQueue = std::function<std::unique_ptr<SerialQueue>(std::string_view label)>;

  /// `clock` and `mainQueue` must outlive the object.
  CurlNetworkFetch(const Clock& clock, MainQueue& mainQueue, const MakeQueue& makeQueue);
  ~CurlNetworkFetch() override;

  bool canReach(std::string_view host) const override;
  [[nodiscard]] Subscription fetch(const FetchRequest& request, Completion completion) override;

 private:
  struct Transfer;
  using Ref = std::shared_ptr<Transfer>;
  /// A thread. A name that nobody answers for may occupy it for half a minute.
  struct Lane {
    std::atomic<int> waiting = 0;
    std::unique_ptr<SerialQueue> queue;

    void async(SerialQueue::Work work);
  };
  static constexpr std::size_t kLaneCount = 3;

  void lookUp(const Ref& transfer);
  void ask(const Ref& transfer);

  const Clock& clock_;
  MainQueue& mainQueue_;
  std::array<Lane, kLaneCount> lanes_;
  mutable std::optional<double> connectionReadAt_;
  mutable bool isConnected_ = false;
  WeakSelf<CurlNetworkFetch> weakSelf_{this};
};

}  // namespace rondora::desktop

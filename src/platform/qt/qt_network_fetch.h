#pragma once

#include <QDeadlineTimer>
#include <memory>

#include "platform/network_fetch.h"

class QNetworkAccessManager;

namespace rondora {

/// Loads the toolkit's network libraries with the first request.
class QtNetworkFetch final : public NetworkFetch {
 public:
  QtNetworkFetch();
  ~QtNetworkFetch() override;

  /// False when no network interface has an address; the local host is always reachable. Lists the interfaces once per
  /// second at most.
  bool canReach(std::string_view host) const override;
  [[nodiscard]] Subscription fetch(const FetchRequest& request, Completion completion) override;

 private:
  std::unique_ptr<QNetworkAccessManager> manager_;
  mutable QDeadlineTimer connectionKnown_;
  mutable bool isConnected_ = false;
};

}  // namespace rondora

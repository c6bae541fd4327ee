#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "icons/web_address.h"
#include "platform/main_queue.h"
#include "platform/network_fetch.h"
#include "platform/picture_codec.h"

namespace rondora {

enum class FaviconOutcome {
  found,
  none,         // the site answered and has no picture that can be shown
  unreachable,  // no answer, or one that promises better for later
};

struct FaviconResult {
  FaviconOutcome outcome = FaviconOutcome::unreachable;
  /// A PNG when `found`.
  std::string picture;
};

/// Looks for the picture of one site: what its front page names, then "/favicon.ico". Ends by itself after a bounded
/// number of requests and a bounded time; destroying it gives up. Main thread.
class FaviconLookup {
 public:
  struct Ports {
    NetworkFetch& network;
    PictureCodec& codec;
    MainQueue& mainQueue;
  };
  /// Runs once, on a later turn; it may destroy the lookup only on a turn after that.
  using Completion = std::function<void(FaviconResult)>;

  /// All ports outlive this.
  FaviconLookup(const Ports& ports, const WebAddress& site, Completion completion);
  FaviconLookup(const FaviconLookup&) = delete;
  FaviconLookup& operator=(const FaviconLookup&) = delete;

  /// Whether a page may lead a lookup to `target`: never from a secure address to an insecure one, and to this machine
  /// or a bare network address only within the same host.
  static bool mayFollow(const WebAddress& from, const WebAddress& target);

 private:
  struct Answer {
    WebAddress address;
    FetchResponse response;
  };
  using Handler = void (FaviconLookup::*)(std::optional<Answer>);

  void get(const WebAddress& address, std::size_t largestBody, Handler handler);
  void request(const WebAddress& address);
  void arrived(const WebAddress& address, std::optional<FetchResponse> response);
  bool redirect(const WebAddress& from, const FetchResponse& response);
  void pageArrived(std::optional<Answer> answer);
  void tryNextPicture();
  void pictureArrived(std::optional<Answer> answer);
  void finish(FaviconResult result);

  Ports ports_;
  WebAddress site_;
  Completion completion_;
  std::size_t largestBody_ = 0;
  Handler handler_ = nullptr;
  int redirections_ = 0;
  std::vector<WebAddress> candidates_;  // the next one last
  bool isTemporary_ = false;            // some answer was missing that may come another time
  Subscription request_;
  Subscription deadline_;
  WeakSelf<FaviconLookup> weakSelf_{this};
};

}  // namespace rondora

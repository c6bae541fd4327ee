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
#include "platform/picture_decoder.h"

namespace rondora {

enum class FaviconOutcome {
  found,
  none,         // the site answered but has no usable picture
  unreachable,  // no answer, or a temporary failure
};

struct FaviconResult {
  FaviconOutcome outcome = FaviconOutcome::unreachable;
  /// A PNG when `found`.
  std::string picture;
};

/// Looks up the favicon of one site: the links of its front page, then "/favicon.ico". Ends after a bounded number of
/// requests and a bounded time; destroying it cancels it. Main thread.
class FaviconLookup {
 public:
  struct Ports {
    NetworkFetch& network;
    PictureDecoder& decoder;
    MainQueue& mainQueue;
  };
  /// Called once, on a later turn; may destroy the lookup only on a turn after that.
  using Completion = std::function<void(FaviconResult)>;

  /// The ports must outlive the object.
  FaviconLookup(const Ports& ports, const WebAddress& site, Completion completion);
  FaviconLookup(const FaviconLookup&) = delete;
  FaviconLookup& operator=(const FaviconLookup&) = delete;

  /// Whether a lookup may go on from `from` to `target`: never from https to http, to local names and numeric addresses
  /// only on the same host, and to unusual ports only to that of `from`.
  static bool mayFollow(const WebAddress& from, const WebAddress& target);

 private:
  struct Answer {
    WebAddress address;
    FetchResponse response;
  };
  using Handler = void (FaviconLookup::*)(std::optional<Answer>);

  void get(const WebAddress& address, std::size_t maxBodySize, Handler handler);
  void request(const WebAddress& address);
  void arrived(const WebAddress& address, std::optional<FetchResponse> response);
  bool redirect(const WebAddress& from, const FetchResponse& response);
  void pageArrived(std::optional<Answer> answer);
  void tryNextPicture();
  void pictureArrived(std::optional<Answer> answer);
  void pictureDecoded(const PictureResult& result);
  void finish(FaviconResult result);

  Ports ports_;
  WebAddress site_;
  Completion completion_;
  std::size_t maxBodySize_ = 0;
  Handler handler_ = nullptr;
  int redirections_ = 0;
  std::vector<WebAddress> candidates_;  // the next one last
  bool isTemporary_ = false;            // a request failed that may succeed later
  Subscription step_;                   // the request or the decoding underway
  Subscription deadline_;
  WeakSelf<FaviconLookup> weakSelf_{this};
};

}  // namespace rondora

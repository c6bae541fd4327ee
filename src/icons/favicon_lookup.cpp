#include "icons/favicon_lookup.h"

#include <algorithm>
#include <utility>

#include "icons/address_rules.h"
#include "icons/favicon_links.h"
#include "icons/picture_sizes.h"

namespace rondora {
namespace {

constexpr std::size_t kMaxPageSize = 256 << 10;  // bytes; the head comes first
constexpr std::size_t kMaxPictureSize = 1 << 20;
constexpr double kRequestTimeout = 10;  // seconds
constexpr double kLookupTimeout = 40;
constexpr int kMaxRedirections = 5;
constexpr std::size_t kMaxCandidates = 4;
/// Pixels: roughly the largest icon of a ring at 4 pixels per point.
constexpr int kPictureSide = 192;

bool isRedirection(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool isTemporaryFailure(int status) {
  return status == 407 || status == 408 || status == 425 || status == 429 || status >= 500;
}

}  // namespace

FaviconLookup::FaviconLookup(const Ports& ports, const WebAddress& site, Completion completion)
    : ports_(ports), site_(site.root()), completion_(std::move(completion)) {
  deadline_ = ports_.mainQueue.workItem(kLookupTimeout,
                                        weakSelf_.bind([](FaviconLookup& self) { self.finish(FaviconResult{}); }));
  get(site_, kMaxPageSize, &FaviconLookup::pageArrived);
}

bool FaviconLookup::mayFollow(const WebAddress& from, const WebAddress& target) {
  if (from.isSecure() && !target.isSecure()) return false;
  const bool isSameHost = target.host() == from.host();
  if (isSameHost && target.port() == from.port()) return true;
  return target.hasUsualPort() && (isSameHost || isPublicName(target.host()));
}

void FaviconLookup::get(const WebAddress& address, std::size_t maxBodySize, Handler handler) {
  maxBodySize_ = maxBodySize;
  handler_ = handler;
  redirections_ = 0;
  request(address);
}

void FaviconLookup::request(const WebAddress& address) {
  FetchRequest wanted{.address = address.text(),
                      .maxBodySize = maxBodySize_,
                      .timeout = kRequestTimeout,
                      .mayConnect = [host = address.host()](const IpAddress& ip) { return mayConnect(host, ip); }};
  step_ = ports_.network.fetch(wanted,
                               weakSelf_.bind([address](FaviconLookup& self, std::optional<FetchResponse> response) {
                                 self.arrived(address, std::move(response));
                               }));
}

void FaviconLookup::arrived(const WebAddress& address, std::optional<FetchResponse> response) {
  if (!completion_) return;
  if (!response || isTemporaryFailure(response->status)) isTemporary_ = true;
  if (response && isRedirection(response->status) && redirect(address, *response)) return;
  std::optional<Answer> answer;
  if (response && response->status == 200) answer = Answer{address, *std::move(response)};
  (this->*handler_)(std::move(answer));
}

bool FaviconLookup::redirect(const WebAddress& from, const FetchResponse& response) {
  if (++redirections_ > kMaxRedirections || response.location.empty()) return false;
  const auto target = from.resolve(response.location);
  if (!target || !mayFollow(from, *target)) return false;
  request(*target);
  return true;
}

void FaviconLookup::pageArrived(std::optional<Answer> answer) {
  const WebAddress page = answer ? answer->address : site_;
  std::vector<WebAddress> addresses;
  if (answer) addresses = faviconLinks(page, answer->response.body);
  std::erase_if(addresses, [&page](const WebAddress& address) { return !mayFollow(page, address); });
  if (addresses.size() > kMaxCandidates) addresses.resize(kMaxCandidates);
  if (const auto usual = page.resolve("/favicon.ico")) addresses.push_back(*usual);
  candidates_.assign(addresses.rbegin(), addresses.rend());
  tryNextPicture();
}

void FaviconLookup::tryNextPicture() {
  if (candidates_.empty()) {
    return finish({isTemporary_ ? FaviconOutcome::unreachable : FaviconOutcome::none, {}});
  }
  const WebAddress next = std::move(candidates_.back());
  candidates_.pop_back();
  get(next, kMaxPictureSize, &FaviconLookup::pictureArrived);
}

void FaviconLookup::pictureArrived(std::optional<Answer> answer) {
  if (!answer || !answer->response.isComplete || !statesPlausibleSizes(answer->response.body)) return tryNextPicture();
  PictureRequest request{.source = PictureRequest::Source::bytes,
                         .side = kPictureSide,
                         .content = std::move(answer->response.body),
                         .theme = {},
                         .version = {}};
  step_ = ports_.decoder.decode(
      std::move(request),
      weakSelf_.bind([](FaviconLookup& self, const PictureResult& result) { self.pictureDecoded(result); }));
}

void FaviconLookup::pictureDecoded(const PictureResult& result) {
  switch (result.outcome) {
    case PictureResult::Outcome::decoded:
      return finish({FaviconOutcome::found, result.bytes});
    case PictureResult::Outcome::gaveUp:  // the site's other pictures may cost as much
      return finish({FaviconOutcome::none, {}});
    case PictureResult::Outcome::unavailable:
      isTemporary_ = true;
      break;
    case PictureResult::Outcome::unreadable:
      break;
  }
  tryNextPicture();
}

void FaviconLookup::finish(FaviconResult result) {
  deadline_.reset();
  step_.reset();
  if (const auto completion = std::exchange(completion_, nullptr)) completion(std::move(result));
}

}  // namespace rondora

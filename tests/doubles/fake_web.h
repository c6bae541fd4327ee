#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/main_queue.h"
#include "platform/network_fetch.h"
#include "platform/picture_decoder.h"

namespace rondora {

/// A web of a few addresses; all others answer with status 404.
class FakeWeb final : public NetworkFetch {
 public:
  explicit FakeWeb(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

  bool canReach(std::string_view) const override {
    ++reachQueries;
    return isConnected;
  }
  [[nodiscard]] Subscription fetch(const FetchRequest& request, Completion completion) override {
    const bool isPermitted = request.mayConnect(ipAddressOf(request.address));
    if (isPermitted) requested.push_back(request.address);
    const auto isUp = std::make_shared<bool>(true);
    ++underway;
    const auto end = [this, isUp] {
      const bool wasUp = std::exchange(*isUp, false);
      if (wasUp) --underway;
      return wasUp;
    };
    const bool isSilent = silent.contains(request.address);
    mainQueue_.after(isSilent ? request.timeout : kLatency,
                     [this, request, end, isPermitted, completion = std::move(completion)] {
                       if (end()) completion(isPermitted ? answer(request) : std::nullopt);
                     });
    return Subscription([end] { end(); });
  }
  std::vector<std::string> takeRequested() { return std::exchange(requested, {}); }

  std::map<std::string, FetchResponse> pages;
  /// Addresses that never answer.
  std::set<std::string> silent;
  /// By host; all others have a public one.
  std::map<std::string, std::array<std::uint8_t, 4>> ipAddresses;
  bool isConnected = true;
  mutable std::size_t reachQueries = 0;
  /// The requests that were permitted to connect.
  std::vector<std::string> requested;
  int underway = 0;

 private:
  static constexpr double kLatency = 0.1;

  IpAddress ipAddressOf(const std::string& address) const {
    const auto start = address.find("//") + 2;
    const auto found = ipAddresses.find(address.substr(start, address.find_first_of(":/", start) - start));
    const auto bytes = found == ipAddresses.end() ? std::array<std::uint8_t, 4>{8, 8, 8, 8} : found->second;
    return {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, bytes[0], bytes[1], bytes[2], bytes[3]};
  }

  std::optional<FetchResponse> answer(const FetchRequest& request) const {
    if (silent.contains(request.address)) return std::nullopt;
    const auto found = pages.find(request.address);
    if (found == pages.end()) return FetchResponse{404, {}, {}, true};
    FetchResponse response = found->second;
    response.isComplete = response.body.size() <= request.maxBodySize;
    response.body.resize(std::min(response.body.size(), request.maxBodySize));
    return response;
  }

  MainQueue& mainQueue_;
};

/// Decodes "picture …" and PNG to "png …", gives up on "endless …", and rejects all other bytes.
class FakePictureDecoder final : public PictureDecoder {
 public:
  explicit FakePictureDecoder(MainQueue& mainQueue) : mainQueue_(mainQueue) {}

  [[nodiscard]] Subscription decode(PictureRequest request, Completion completion) override {
    ++requests;
    return mainQueue_.workItem(
        kDuration, [result = answer(request.content), completion = std::move(completion)] { completion(result); });
  }

  int requests = 0;

 private:
  static constexpr double kDuration = 0.01;

  static PictureResult answer(const std::string& bytes) {
    if (bytes.starts_with("endless ")) return {PictureResult::Outcome::gaveUp, 0, 0, {}};
    if (!bytes.starts_with("picture ") && !bytes.starts_with("\x89PNG\r\n")) return {};
    return {PictureResult::Outcome::decoded, 1, 1, "png " + bytes.substr(8)};
  }

  MainQueue& mainQueue_;
};

}  // namespace rondora

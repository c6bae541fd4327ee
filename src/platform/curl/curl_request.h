#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "platform/network_fetch.h"

namespace rondora::desktop {

/// Where an address leads, as the library reads it, which later connects.
struct WebHost {
  std::string name;
  std::string port;
};

/// Nothing for what is no absolute address of http or https. Any thread.
std::optional<WebHost> webHost(const std::string& address);

/// The addresses that the name stands for. Blocks; any thread but the main one.
std::vector<IpAddress> resolve(const WebHost& host);

/// Asks one of `addresses` after the other until one answers. Blocks until the reply has come, the request's time is
/// over, or soon after `isCancelled`; any thread but the main one.
std::optional<FetchResponse> perform(const FetchRequest& request, const std::vector<IpAddress>& addresses,
                                     const std::atomic<bool>& isCancelled);

}  // namespace rondora::desktop

#pragma once

#include <string_view>

#include "platform/network_fetch.h"

// Where requests for favicons may lead. Names are hosts of a WebAddress. A public name leads to the public internet
// only, whatever addresses it is given; a local name or a numeric address, which only the user's document can state,
// may also lead to this machine and its private networks.

namespace rondora {

/// True for names of the public web; false for this machine, local names and numeric addresses.
bool isPublicName(std::string_view host);

/// True for addresses of the public internet, also inside a translated one (NAT64).
bool isPublicAddress(const IpAddress& address);

/// True for addresses of this machine and of private networks; false for link-local ones, where cloud machines keep
/// their credentials.
bool isPrivateAddress(const IpAddress& address);

/// Whether a request to that host may connect to this address of it.
bool mayConnect(std::string_view host, const IpAddress& address);

}  // namespace rondora

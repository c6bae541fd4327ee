#include "icons/address_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

namespace rondora {
namespace {

/// The addresses that begin with the first `length` bits of `prefix`.
struct Block {
  IpAddress prefix{};
  int length = 0;
};

/// The addresses of version 4, in their mapped form.
constexpr Block kVersion4 = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF}, 96};
/// Addresses of version 4 for machines that have only version 6 (RFC 6052).
constexpr Block kTranslated = {{0, 0x64, 0xFF, 0x9B}, 96};
/// All unicast addresses of version 6 that are given out so far.
constexpr Block kVersion6Unicast = {{0x20}, 3};

constexpr Block version4(std::initializer_list<std::uint8_t> bytes, int length) {
  Block block = {kVersion4.prefix, kVersion4.length + length};
  std::copy(bytes.begin(), bytes.end(), block.prefix.begin() + 12);
  return block;
}

constexpr std::array kPrivate = {
    version4({127}, 8),
    version4({10}, 8),
    version4({172, 16}, 12),
    version4({192, 168}, 16),
    version4({100, 64}, 10),  // shared by the customers of a provider
    Block{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}, 128},
    Block{{0xFC}, 7},
};

/// What is neither private nor public (the IANA registries of special-purpose addresses).
constexpr std::array kSpecial = {
    version4({0}, 8),                     // this network
    version4({169, 254}, 16),             // link-local
    version4({192, 0, 0}, 24),            // protocols
    version4({192, 0, 2}, 24),            // documentation
    version4({192, 88, 99}, 24),          // former relays
    version4({198, 18}, 15),              // benchmarks
    version4({198, 51, 100}, 24),         // documentation
    version4({203, 0, 113}, 24),          // documentation
    version4({224}, 4),                   // multicast
    version4({240}, 4),                   // reserved, broadcast
    Block{{0x20, 0x01, 0x00}, 23},        // protocols, tunnels
    Block{{0x20, 0x01, 0x0D, 0xB8}, 32},  // documentation
    Block{{0x20, 0x02}, 16},              // tunnels to any address of version 4
    Block{{0x3F, 0xFF, 0x00}, 20},        // documentation
};

constexpr int kBitsPerByte = 8;

bool isIn(const IpAddress& address, const Block& block) {
  const auto whole = static_cast<std::size_t>(block.length / kBitsPerByte);
  const int rest = block.length % kBitsPerByte;
  if (!std::equal(address.begin(), address.begin() + static_cast<std::ptrdiff_t>(whole), block.prefix.begin())) {
    return false;
  }
  return rest == 0 || ((address[whole] ^ block.prefix[whole]) >> (kBitsPerByte - rest)) == 0;
}

bool isInAny(const IpAddress& address, std::span<const Block> blocks) {
  return std::any_of(blocks.begin(), blocks.end(), [&address](const Block& block) { return isIn(address, block); });
}

/// A translated address as one of version 4.
IpAddress untranslated(const IpAddress& address) {
  if (!isIn(address, kTranslated)) return address;
  IpAddress result = kVersion4.prefix;
  std::copy(address.begin() + 12, address.end(), result.begin() + 12);
  return result;
}

}  // namespace

bool isPublicName(std::string_view host) {
  for (const std::string_view local : {".local", ".localhost", ".lan", ".internal", ".home.arpa"}) {
    if (host.ends_with(local)) return false;
  }
  const auto lastDot = host.rfind('.');
  if (lastDot == host.npos || lastDot + 1 == host.size() || host.front() == '[') return false;
  const char first = host[lastDot + 1];  // a numeric last label means an address, in any base
  return first < '0' || first > '9';
}

bool isPublicAddress(const IpAddress& address) {
  const IpAddress direct = untranslated(address);
  if (!isIn(direct, kVersion4) && !isIn(direct, kVersion6Unicast)) return false;
  return !isInAny(direct, kPrivate) && !isInAny(direct, kSpecial);
}

bool isPrivateAddress(const IpAddress& address) { return isInAny(address, kPrivate); }

bool mayConnect(std::string_view host, const IpAddress& address) {
  return isPublicAddress(address) || (!isPublicName(host) && isPrivateAddress(address));
}

}  // namespace rondora

#include "platform/macos/conversions/remote_token.h"

#include <cstddef>

namespace rondora::macos {
namespace {

constexpr std::size_t kProcess = 0;
constexpr std::size_t kKind = 8;
constexpr std::size_t kElement = 12;

/// "coco": an element of an application that is built on Cocoa.
constexpr std::uint32_t kCocoa = 0x636F636F;

template <class Integer>
void put(RemoteToken& token, std::size_t offset, Integer value) {
  for (std::size_t i = 0; i < sizeof(value); ++i) token[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

RemoteToken remoteToken(std::int32_t processIdentifier, std::uint64_t element) {
  RemoteToken token{};
  put(token, kProcess, static_cast<std::uint32_t>(processIdentifier));
  put(token, kKind, kCocoa);
  put(token, kElement, element);
  return token;
}

}  // namespace rondora::macos

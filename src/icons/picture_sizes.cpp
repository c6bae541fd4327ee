#include "icons/picture_sizes.h"

#include <cstddef>
#include <cstdint>

#include "platform/picture_decoder.h"

namespace rondora {
namespace {

using namespace std::string_view_literals;

constexpr std::uint32_t kMaxSide = PictureDecoder::kMaxSide;
constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1a\n"sv;
constexpr std::string_view kIcoSignature = "\0\0\1\0"sv;
constexpr std::string_view kCursorSignature = "\0\0\2\0"sv;  // otherwise like an ICO
constexpr std::size_t kChunkFrame = 12;                      // length, type and check sum
/// Far more than an icon has; each costs a step for every picture in an ICO.
constexpr int kMaxChunks = 4096;

std::uint32_t byteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

std::uint32_t bigEndian32(std::string_view bytes, std::size_t at) {
  return byteAt(bytes, at) << 24 | byteAt(bytes, at + 1) << 16 | byteAt(bytes, at + 2) << 8 | byteAt(bytes, at + 3);
}

std::uint32_t littleEndian32(std::string_view bytes, std::size_t at) {
  return byteAt(bytes, at + 3) << 24 | byteAt(bytes, at + 2) << 16 | byteAt(bytes, at + 1) << 8 | byteAt(bytes, at);
}

bool isPlausibleHeader(std::string_view chunk) {
  return chunk.size() >= 16 && bigEndian32(chunk, 8) <= kMaxSide && bigEndian32(chunk, 12) <= kMaxSide;
}

bool isPlausiblePng(std::string_view png) {
  std::string_view rest = png.substr(kPngSignature.size());
  for (int chunks = 0; rest.size() >= kChunkFrame; ++chunks) {
    if (chunks == kMaxChunks) return false;
    const std::size_t length = bigEndian32(rest, 0);
    const std::string_view type = rest.substr(4, 4);
    if (length > rest.size() - kChunkFrame) return false;
    if (type == "IHDR" && !isPlausibleHeader(rest)) return false;
    if (type == "IEND") return true;
    rest.remove_prefix(kChunkFrame + length);
  }
  return true;
}

bool isPlausibleIco(std::string_view ico) {
  constexpr std::size_t kHeader = 6;
  constexpr std::size_t kEntry = 16;
  constexpr std::size_t kOffset = 12;
  if (ico.size() < kHeader) return true;
  const std::size_t count = byteAt(ico, 4) | byteAt(ico, 5) << 8;
  if (count > PictureDecoder::kMaxPictures) return false;
  for (std::size_t i = 0; i < count && ico.size() >= kHeader + (i + 1) * kEntry; ++i) {
    const std::size_t offset = littleEndian32(ico, kHeader + i * kEntry + kOffset);
    const std::string_view embedded = ico.substr(offset < ico.size() ? offset : ico.size());
    if (embedded.starts_with(kPngSignature) && !isPlausiblePng(embedded)) return false;
  }
  return true;
}

}  // namespace

bool statesPlausibleSizes(std::string_view picture) {
  if (picture.starts_with(kPngSignature)) return isPlausiblePng(picture);
  const bool isIco = picture.starts_with(kIcoSignature) || picture.starts_with(kCursorSignature);
  return !isIco || isPlausibleIco(picture);
}

}  // namespace rondora

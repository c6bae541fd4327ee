#include "ui/appkit/painting/decoded_icons.h"

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace rondora::appkit {
namespace {

std::string keyOf(const PictureRequest& request) {
  return std::to_string(static_cast<int>(request.source)) + '|' + std::to_string(request.side) + '|' + request.content;
}

Image imageOf(const PictureResult& result) {
  if (result.outcome != PictureResult::Outcome::decoded || result.width <= 0 || result.height <= 0) return {};
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
  const std::size_t byteCount = pixels.size() * sizeof(pixels.front());
  if (result.bytes.size() < byteCount) return {};
  std::memcpy(pixels.data(), result.bytes.data(), byteCount);
  return makeImage({pixels.data(), result.width, result.height, result.width});
}

}  // namespace

Image DecodedIcons::find(PictureRequest wanted) {
  const std::string key = keyOf(wanted);
  const auto found = entries_.find(key);
  if (found == entries_.end() && (!decode_ || entries_.size() >= kMaxEntries)) return {};
  const auto entry =
      found == entries_.end() ? entries_.emplace(key, std::make_shared<Entry>()).first->second : found->second;
  if (found == entries_.end() || entry->version != wanted.version) request(entry, std::move(wanted));
  return entry->image;
}

void DecodedIcons::request(const std::shared_ptr<Entry>& entry, PictureRequest wanted) {
  entry->version = wanted.version;
  entry->decoding.reset();
  entry->decoding = decode_(std::move(wanted), weakSelf_.bind([entry = std::weak_ptr<Entry>(entry)](
                                                                  DecodedIcons& /*self*/, const PictureResult& result) {
    if (const auto waiting = entry.lock()) waiting->image = imageOf(result);
  }));
}

}  // namespace rondora::appkit

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/posix/picture_messages.h"
#include "require.h"

// The first byte chooses what was requested; the rest is the message of a picture process that a hostile picture may
// have taken over. Accepted pixels are as many as their size says.

namespace rondora::desktop {
namespace {

constexpr int kSide = 64;

void checkResult(const PictureResult& result, const PictureRequest& request) {
  if (result.outcome != PictureResult::Outcome::decoded) return;
  require(result.width > 0 && result.width <= kSide && result.height > 0 && result.height <= kSide,
          "the size is sound");
  if (request.source == PictureRequest::Source::bytes) return;
  require(result.bytes.size() == static_cast<std::size_t>(result.width * result.height) * 4, "each pixel is there");
}

void check(std::string_view bytes) {
  if (bytes.empty()) return;
  PictureRequest request;
  request.source = static_cast<PictureRequest::Source>(bytes.front() & 3);
  request.side = kSide;
  if (const auto result = unpackedResult(bytes.substr(1), request)) checkResult(*result, request);
  if (const auto read = unpackedRequest(bytes.substr(1))) {
    const auto again = unpackedRequest(packed(*read));
    require(again && again->content == read->content && again->theme.folders == read->theme.folders,
            "a request is read back equal");
  }
}

}  // namespace
}  // namespace rondora::desktop

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::desktop::check({reinterpret_cast<const char*>(data), size});
  return 0;
}

#include "platform/posix/picture_messages.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>
#include <utility>
#include <vector>

namespace rondora::desktop {
namespace {

using Length = std::uint32_t;
constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1a\n";

/// A message is a list of texts, each after its length; both ends run on the same machine.
class Writer {
 public:
  void add(std::string_view text) {
    const auto length = static_cast<Length>(text.size());
    message_.append(reinterpret_cast<const char*>(&length), sizeof length);
    message_.append(text);
  }
  void add(int number) { add(std::to_string(number)); }
  void add(const std::vector<std::string>& texts) {
    add(static_cast<int>(texts.size()));
    for (const std::string& text : texts) add(text);
  }
  std::string take() { return std::move(message_); }

 private:
  std::string message_;
};

/// Yields nothing from the first malformed field on.
class Reader {
 public:
  explicit Reader(std::string_view message) : rest_(message) {}

  bool isComplete() const { return isSound_ && rest_.empty(); }
  std::string text() {
    Length length = 0;
    isSound_ = isSound_ && rest_.size() >= sizeof length;
    if (!isSound_) return {};
    std::memcpy(&length, rest_.data(), sizeof length);
    rest_.remove_prefix(sizeof length);
    isSound_ = length <= rest_.size();
    if (!isSound_) return {};
    std::string result(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return result;
  }
  /// From 0 up to `max`.
  int number(int max) {
    const std::string digits = text();
    int value = 0;
    const char* end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, value);
    isSound_ = isSound_ && parsed.ec == std::errc() && parsed.ptr == end && value >= 0 && value <= max;
    return isSound_ ? value : 0;
  }
  std::vector<std::string> texts() {
    std::vector<std::string> result;
    for (int count = number(std::numeric_limits<int>::max()); isSound_ && count > 0; --count) result.push_back(text());
    return result;
  }

 private:
  std::string_view rest_;
  bool isSound_ = true;
};

bool isPlausible(const PictureResult& result, const PictureRequest& request) {
  if (result.outcome != PictureResult::Outcome::decoded) return result.bytes.empty();
  if (result.width <= 0 || result.height <= 0) return false;
  if (request.source == PictureRequest::Source::bytes) return result.bytes.starts_with(kPngSignature);
  const auto count = static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height);
  return result.bytes.size() == count * sizeof(std::uint32_t);
}

}  // namespace

std::string packed(const PictureRequest& request) {
  Writer writer;
  writer.add(static_cast<int>(request.source));
  writer.add(request.side);
  writer.add(request.content);
  writer.add(request.theme.name);
  writer.add(request.theme.fallbackName);
  writer.add(request.theme.folders);
  writer.add(request.theme.looseFolders);
  return writer.take();
}

std::optional<PictureRequest> unpackedRequest(std::string_view message) {
  Reader reader(message);
  PictureRequest request;
  request.source = static_cast<PictureRequest::Source>(reader.number(PictureRequest::kSourceCount - 1));
  request.side = reader.number(PictureDecoder::kMaxResultSide);
  request.content = reader.text();
  request.theme.name = reader.text();
  request.theme.fallbackName = reader.text();
  request.theme.folders = reader.texts();
  request.theme.looseFolders = reader.texts();
  if (!reader.isComplete() || request.side == 0) return std::nullopt;
  return request;
}

std::string packed(const PictureResult& result) {
  Writer writer;
  writer.add(static_cast<int>(result.outcome));
  writer.add(result.width);
  writer.add(result.height);
  writer.add(result.bytes);
  return writer.take();
}

std::optional<PictureResult> unpackedResult(std::string_view message, const PictureRequest& request) {
  Reader reader(message);
  PictureResult result;
  result.outcome = static_cast<PictureResult::Outcome>(reader.number(PictureResult::kOutcomeCount - 1));
  result.width = reader.number(request.side);
  result.height = reader.number(request.side);
  result.bytes = reader.text();
  if (!reader.isComplete() || !isPlausible(result, request)) return std::nullopt;
  return result;
}

}  // namespace rondora::desktop

#include "base/file_url.h"

namespace rondora {
namespace {

constexpr std::string_view kUnreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
constexpr std::string_view kDigits = "0123456789ABCDEF";

}  // namespace

std::string fileUrl(std::string_view absolutePath) {
  std::string url = "file://";
  for (const char c : absolutePath) {
    const auto byte = static_cast<unsigned char>(c);
    if (kUnreserved.find(c) != std::string_view::npos) {
      url += c;
    } else {
      url.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
    }
  }
  return url;
}

}  // namespace rondora

#include "base/file_url.h"

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr std::string_view kUnreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
constexpr std::string_view kScheme = "file:";
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

bool isFileOfAnotherMachine(std::string_view url) {
  const std::string lowered = lowerCased(url);
  if (!lowered.starts_with(kScheme)) return false;
  const std::string_view rest = std::string_view(lowered).substr(kScheme.size());
  if (!rest.starts_with("//")) return false;
  const std::string_view host = rest.substr(2, rest.find_first_of("/?#", 2) - 2);
  return !host.empty() && host != "localhost";
}

}  // namespace rondora

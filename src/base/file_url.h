#pragma once

#include <string>
#include <string_view>

namespace rondora {

/// The "file:" URL of an absolute path; every byte that has a meaning in URLs is percent-encoded.
std::string fileUrl(std::string_view absolutePath);

}  // namespace rondora

#pragma once

#include <string>
#include <string_view>

namespace rondora {

/// The "file:" URL of an absolute path; every byte that has a meaning in URLs is percent-encoded.
std::string fileUrl(std::string_view absolutePath);

/// True for a "file:" URL of another machine: one with a host other than "localhost". Systems would open the local file
/// of the same path.
bool isFileOfAnotherMachine(std::string_view url);

}  // namespace rondora

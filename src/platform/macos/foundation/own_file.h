#pragma once

#include <string>

namespace rondora::macos {

/// The path of this program's executable file.
std::string ownFile();

}  // namespace rondora::macos

#pragma once

#include <string>
#include <vector>

#include "platform/file_chooser.h"

namespace rondora::macos {

/// The extensions of the kinds' patterns, without dots: the last one where a pattern has several, as the system knows
/// no others. Empty when a pattern allows every file.
std::vector<std::string> extensionsOf(const std::vector<FileKind>& kinds);

}  // namespace rondora::macos

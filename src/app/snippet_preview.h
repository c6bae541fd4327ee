#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/windows.h"

namespace rondora {

/// The preview of a snippet: its trimmed text, cut to a length that is cheap to lay out. Nothing for a snippet without
/// visible text.
std::optional<SnippetPreview> snippetPreview(std::string_view snippet, std::string hint);

}  // namespace rondora

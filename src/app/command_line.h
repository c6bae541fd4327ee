#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace rondora {

/// What the program writes instead of running.
struct CommandLineReply {
  std::string text;
  /// The arguments were wrong: the text belongs on standard error.
  bool isUsageError = false;
};

/// The reply to the arguments after the program's name; nothing when the program shall run.
std::optional<CommandLineReply> replyToArguments(std::span<const char* const> arguments, std::string_view documentPath);

}  // namespace rondora

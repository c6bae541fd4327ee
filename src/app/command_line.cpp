#include "app/command_line.h"

#include "base/program_identity.h"

namespace rondora {
namespace {

constexpr std::string_view kUsage = "Usage: rondora [--help | --version]\n";

std::string help(std::string_view documentPath) {
  const std::string bus(program_identity::kBundleIdentifier);
  std::string object = "/" + bus;
  for (char& each : object) {
    if (each == '.') each = '/';
  }
  const std::string call =
      "  gdbus call --session --dest " + bus + " --object-path " + object + " \\\n    --method " + bus;
  return std::string(kUsage) +
         "\n"
         "Opens a ring of items at the pointer with a hotkey: point at an item and let go.\n"
         "Runs in the background; when it already runs, its settings open.\n"
         "\n"
         "  --help     show this text\n"
         "  --version  show the version\n"
         "\n"
         "The configuration is the JSON document\n  " +
         std::string(documentPath) +
         "\n"
         "\n"
         "Open a menu by its name or id:\n" +
         call +
         ".Trigger NAME\n"
         "List the menus, each with id, name, hotkey and whether the hotkey works:\n" +
         call + ".ListMenus\n";
}

std::string versionLine() {
  return std::string(program_identity::kName) + " " + std::string(program_identity::version()) + "\n";
}

}  // namespace

std::optional<CommandLineReply> replyToArguments(std::span<const char* const> arguments,
                                                 std::string_view documentPath) {
  if (arguments.empty()) return std::nullopt;
  const std::string_view first = arguments.front();
  if (arguments.size() == 1 && first == "--help") return CommandLineReply{help(documentPath)};
  if (arguments.size() == 1 && first == "--version") return CommandLineReply{versionLine()};
  const bool isKnown = first == "--help" || first == "--version";
  const std::string wrong(isKnown ? arguments[1] : arguments[0]);
  return CommandLineReply{"rondora: unexpected argument '" + wrong + "'\n" + std::string(kUsage), true};
}

}  // namespace rondora

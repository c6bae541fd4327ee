#include "platform/linux/x11/windows/x11_spaces.h"

namespace rondora::x11 {

std::optional<std::vector<std::uint64_t>> X11Spaces::spacesForWindow(std::uint32_t window) const {
  const auto* connected = worker_.connected();
  const auto info = connected ? connected->windows.describe(window) : std::nullopt;
  if (!info || !info->desktop) return std::nullopt;
  return std::vector<std::uint64_t>{*info->desktop};
}

std::optional<std::vector<DisplaySpaces>> X11Spaces::managedDisplaySpaces() const {
  const auto* connected = worker_.connected();
  if (!connected) return std::nullopt;
  const X11Connection& connection = connected->connection;
  const auto cardinals = [&connection](const char* name) {
    return connection.property32(connection.root(), connection.atom(name), XCB_ATOM_CARDINAL);
  };
  const auto count = cardinals("_NET_NUMBER_OF_DESKTOPS");
  const auto current = cardinals("_NET_CURRENT_DESKTOP");
  constexpr std::uint32_t kMaxDesktops = 1024;
  if (count.empty() || count.front() > kMaxDesktops) return std::nullopt;
  DisplaySpaces display;
  for (std::uint32_t desktop = 0; desktop < count.front(); ++desktop) display.spaces.emplace_back(desktop);
  if (!current.empty()) display.currentSpace = current.front();
  return std::vector<DisplaySpaces>{display};
}

}  // namespace rondora::x11

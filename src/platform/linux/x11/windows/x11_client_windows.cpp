#include "platform/linux/x11/windows/x11_client_windows.h"

#include <xcb/res.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

#include "platform/linux/x11/connection/property_reply.h"
#include "platform/linux/x11/windows/window_manager.h"
#include "platform/picture_decoder.h"

namespace rondora::x11 {
namespace {

/// Readable only for the user's own processes.
std::string executableOf(std::int32_t processIdentifier) {
  if (processIdentifier <= 0) return {};
  std::error_code error;
  const auto link = std::filesystem::read_symlink("/proc/" + std::to_string(processIdentifier) + "/exe", error);
  std::string name = error ? std::string() : link.filename().string();
  constexpr std::string_view kReplaced = " (deleted)";
  if (name.ends_with(kReplaced)) name.resize(name.size() - kReplaced.size());
  return name;
}

/// Process by client; the client is the part of a window's id that all resources of one connection share.
std::map<std::uint32_t, std::int32_t> processesOf(const X11Connection& connection,
                                                  xcb_res_query_client_ids_cookie_t cookie) {
  std::map<std::uint32_t, std::int32_t> processes;
  const Reply<xcb_res_query_client_ids_reply_t> reply(
      xcb_res_query_client_ids_reply(connection.get(), cookie, nullptr));
  if (!reply) return processes;
  for (auto it = xcb_res_query_client_ids_ids_iterator(reply.get()); it.rem > 0; xcb_res_client_id_value_next(&it)) {
    const bool hasProcess = (it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
                            xcb_res_client_id_value_value_length(it.data) > 0;
    if (hasProcess) {
      processes[it.data->spec.client] = static_cast<std::int32_t>(*xcb_res_client_id_value_value(it.data));
    }
  }
  return processes;
}

std::vector<xcb_window_t> childrenOf(const X11Connection& connection, xcb_window_t window) {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
  if (!tree) return {};
  const xcb_window_t* first = xcb_query_tree_children(tree.get());
  return {first, first + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t parentOf(const X11Connection& connection, xcb_window_t window) {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
  return tree ? tree->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

/// Where the pixels of one icon are in the property, in words of 32 bits.
struct IconPlace {
  std::uint32_t offset = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

Reply<xcb_get_property_reply_t> wordsAt(const X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                        std::uint32_t offset, std::uint32_t count) {
  const auto cookie = xcb_get_property(connection.get(), 0, window, property, XCB_ATOM_CARDINAL, offset, count);
  return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(connection.get(), cookie, nullptr));
}

/// Walks the headers only: width, height and that many pixels, one icon after the other.
std::optional<IconPlace> bestIcon(const X11Connection& connection, xcb_window_t window, xcb_atom_t property) {
  constexpr std::uint32_t kMaxSide = PictureDecoder::kMaxSide;
  constexpr std::uint32_t kWanted = 128;
  constexpr int kMaxIcons = 32;
  std::optional<IconPlace> best;
  std::uint32_t offset = 0;
  for (int icon = 0; icon < kMaxIcons; ++icon) {
    const auto reply = wordsAt(connection, window, property, offset, 2);
    const auto header = values32(reply.get());
    if (header.size() != 2) break;
    const auto [width, height] = std::pair(header[0], header[1]);
    offset += 2;
    const std::uint64_t count = std::uint64_t{width} * height;
    if (count == 0 || count > reply->bytes_after / sizeof(std::uint32_t)) break;
    const std::uint32_t bestWidth = best ? best->width : 0;
    const bool isBetter = bestWidth < kWanted ? width > bestWidth : width >= kWanted && width < bestWidth;
    if (isBetter && width <= kMaxSide && height <= kMaxSide) best = IconPlace{offset, width, height};
    offset += static_cast<std::uint32_t>(count);
    if (count * sizeof(std::uint32_t) == reply->bytes_after) break;
  }
  return best;
}

}  // namespace

X11ClientWindows::X11ClientWindows(X11Connection& connection) : connection_(connection) {
  connection_.internAtoms({"_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_CURRENT_DESKTOP",
                           "_NET_CLIENT_LIST_STACKING", "_NET_WM_ICON", "_NET_SUPPORTING_WM_CHECK"});
  internWindowAtoms(connection_);
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection_.get(), &xcb_res_id);
  hasResourceExtension_ = extension && extension->present;
}

std::vector<WindowInfo> X11ClientWindows::windows() const {
  return describeAll(hasWindowManager(connection_) ? managedWindows() : unmanagedWindows());
}

std::optional<WindowInfo> X11ClientWindows::describe(xcb_window_t window) const {
  auto infos = describeAll({&window, 1});
  if (infos.empty()) return std::nullopt;
  return std::move(infos.front());
}

xcb_window_t X11ClientWindows::activeWindow() const {
  const auto active =
      connection_.property32(connection_.root(), connection_.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
  if (!active.empty() && active.front() != XCB_WINDOW_NONE) return active.front();
  return focusedWindow();
}

std::vector<xcb_window_t> X11ClientWindows::managedWindows() const {
  for (const char* name : {"_NET_CLIENT_LIST_STACKING", "_NET_CLIENT_LIST"}) {
    auto windows = connection_.property32(connection_.root(), connection_.atom(name), XCB_ATOM_WINDOW);
    if (windows.empty()) continue;
    std::reverse(windows.begin(), windows.end());
    return windows;
  }
  return {};
}

std::vector<xcb_window_t> X11ClientWindows::unmanagedWindows() const {
  std::vector<xcb_window_t> windows;
  for (const xcb_window_t window : childrenOf(connection_, connection_.root())) {
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
    const bool isSeen = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                        attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT && !attributes->override_redirect;
    if (isSeen && connection_.property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)) windows.push_back(window);
  }
  std::reverse(windows.begin(), windows.end());
  return windows;
}

std::vector<WindowInfo> X11ClientWindows::describeAll(std::span<const xcb_window_t> windows) const {
  std::vector<WindowPropertyCookies> cookies;
  std::vector<xcb_res_client_id_spec_t> clients;
  for (const xcb_window_t window : windows) {
    cookies.push_back(requestWindowProperties(connection_, window));
    clients.push_back({window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
  }
  std::map<std::uint32_t, std::int32_t> processes;
  if (hasResourceExtension_ && !clients.empty()) {
    const auto count = static_cast<std::uint32_t>(clients.size());
    processes = processesOf(connection_, xcb_res_query_client_ids(connection_.get(), count, clients.data()));
  }

  const std::uint32_t clientMask = ~xcb_get_setup(connection_.get())->resource_id_mask;
  std::vector<WindowInfo> infos;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    auto info = readWindowProperties(connection_, windows[i], cookies[i]);
    if (!info) continue;
    if (const auto found = processes.find(windows[i] & clientMask); found != processes.end()) {
      info->processIdentifier = found->second;
    }
    info->identity.executable = executableOf(info->processIdentifier);
    infos.push_back(*std::move(info));
  }
  return infos;
}

/// The focus may be on a child of an application's window.
xcb_window_t X11ClientWindows::focusedWindow() const {
  const Reply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
  if (!reply || reply->focus <= XCB_INPUT_FOCUS_POINTER_ROOT) return XCB_WINDOW_NONE;
  const auto windows = hasWindowManager(connection_) ? managedWindows() : unmanagedWindows();
  xcb_window_t window = reply->focus;
  while (window != XCB_WINDOW_NONE && std::find(windows.begin(), windows.end(), window) == windows.end()) {
    window = parentOf(connection_, window);
  }
  return window;
}

std::optional<WindowIcon> X11ClientWindows::icon(xcb_window_t window) const {
  const xcb_atom_t property = connection_.atom("_NET_WM_ICON");
  const auto place = bestIcon(connection_, window, property);
  if (!place) return std::nullopt;
  const auto reply = wordsAt(connection_, window, property, place->offset, place->width * place->height);
  const auto pixels = values32(reply.get());
  if (pixels.size() != std::size_t{place->width} * place->height) return std::nullopt;
  return WindowIcon{{pixels.begin(), pixels.end()}, static_cast<int>(place->width), static_cast<int>(place->height)};
}

}  // namespace rondora::x11

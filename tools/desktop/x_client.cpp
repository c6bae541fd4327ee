#include "desktop/x_client.h"

#include <xcb/res.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "desktop/wait.h"
#include "desktop/x_reply.h"

namespace rondora::live {
namespace {

constexpr std::uint32_t kWholeProperty = 1U << 20;  // in units of four bytes
constexpr int kSettledCaptures = 8;
constexpr std::chrono::seconds kSettlingPatience{5};  // an open ring closes after ten idle seconds

using Numbers = std::vector<std::uint32_t>;

}  // namespace

XClient::XClient(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
  if (xcb_connection_has_error(get()) != 0) throw std::runtime_error("cannot connect to " + display);
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
  window_ = xcb_generate_id(get());
  const std::uint32_t wantedEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(get(), XCB_COPY_FROM_PARENT, window_, root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &wantedEvents);
  xfixesEvent_ = xcb_get_extension_data(get(), &xcb_xfixes_id)->first_event;
  ask(get(), xcb_xfixes_query_version, xcb_xfixes_query_version_reply, 5, 0);
  xcb_xfixes_select_selection_input(get(), window_, atom("CLIPBOARD"),
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
  inputEvent_ = xcb_get_extension_data(get(), &xcb_input_id)->first_event;
  keyboard_ = findKeyboard();
  sync();
}

// It is named after the server, "Xvfb keyboard"; the other one is the XTEST keyboard.
std::uint8_t XClient::findKeyboard() {
  ask(get(), xcb_input_xi_query_version, xcb_input_xi_query_version_reply, 2, 2);
  const auto devices = ask(get(), xcb_input_xi_query_device, xcb_input_xi_query_device_reply, XCB_INPUT_DEVICE_ALL);
  for (auto it = xcb_input_xi_query_device_infos_iterator(devices.get()); it.rem > 0;
       xcb_input_xi_device_info_next(&it)) {
    const std::string_view name(xcb_input_xi_device_info_name(it.data), it.data->name_len);
    const bool isKeyboard = it.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD;
    if (isKeyboard && name.find("XTEST") == std::string_view::npos) return static_cast<std::uint8_t>(it.data->deviceid);
  }
  throw std::runtime_error("the X server has no keyboard");
}

void XClient::userInput(std::uint8_t type, std::uint8_t keyCode) {
  if (beforeInput_) beforeInput_();
  const auto event = static_cast<std::uint8_t>(inputEvent_ + type);
  xcb_test_fake_input(get(), event, keyCode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, keyboard_);
  sync();
}

void XClient::sync() { ask(get(), xcb_get_input_focus, xcb_get_input_focus_reply); }

void XClient::fakeInput(std::uint8_t type, std::uint8_t detail, Position position) {
  if (beforeInput_) beforeInput_();
  xcb_test_fake_input(get(), type, detail, XCB_CURRENT_TIME, root(), static_cast<std::int16_t>(position.x),
                      static_cast<std::int16_t>(position.y), 0);
  sync();
}

void XClient::keyDown(std::uint8_t keyCode) { userInput(XCB_INPUT_DEVICE_KEY_PRESS, keyCode); }
void XClient::keyUp(std::uint8_t keyCode) { userInput(XCB_INPUT_DEVICE_KEY_RELEASE, keyCode); }
void XClient::fakeKeyDown(std::uint8_t keyCode) { fakeInput(XCB_KEY_PRESS, keyCode); }
void XClient::fakeKeyUp(std::uint8_t keyCode) { fakeInput(XCB_KEY_RELEASE, keyCode); }

void XClient::tap(std::uint8_t keyCode) {
  keyDown(keyCode);
  keyUp(keyCode);
}

void XClient::movePointer(Position position) { fakeInput(XCB_MOTION_NOTIFY, 0, position); }

void XClient::buttonDown(std::uint8_t button) { fakeInput(XCB_BUTTON_PRESS, button); }
void XClient::buttonUp(std::uint8_t button) { fakeInput(XCB_BUTTON_RELEASE, button); }

void XClient::click(std::uint8_t button) {
  buttonDown(button);
  buttonUp(button);
}

Position XClient::pointer() {
  const auto reply = ask(get(), xcb_query_pointer, xcb_query_pointer_reply, root());
  return reply ? Position{reply->root_x, reply->root_y} : Position{-1, -1};
}

/// Property changes carry the server's time.
xcb_timestamp_t XClient::serverTime() {
  xcb_change_property(get(), XCB_PROP_MODE_APPEND, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, "");
  sync();
  drainEvents();
  return lastTime_;
}

void XClient::letServerRun(std::chrono::milliseconds time) {
  const xcb_timestamp_t start = serverTime();
  waitUntil([&] { return serverTime() - start >= static_cast<std::uint64_t>(time.count()); });
}

xcb_atom_t XClient::atom(const std::string& name) {
  const auto reply =
      ask(get(), xcb_intern_atom, xcb_intern_atom_reply, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

template <class Values>
Values XClient::property(xcb_window_t window, xcb_atom_t name) {
  using Value = typename Values::value_type;
  const auto reply =
      ask(get(), xcb_get_property, xcb_get_property_reply, 0, window, name, XCB_ATOM_ANY, 0, kWholeProperty);
  if (!reply || reply->format != 8 * sizeof(Value)) return {};
  const auto* values = static_cast<const Value*>(xcb_get_property_value(reply.get()));
  return {values, values + reply->value_len};
}

void XClient::sendToRoot(xcb_window_t window, const std::string& type, const std::uint32_t (&data)[5]) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = atom(type);
  std::copy(std::begin(data), std::end(data), event.data.data32);
  xcb_send_event(get(), 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
  sync();
}

// The reply shows that it reads its events. Openbox 3.6 announces itself long before that and loses the events in
// between, map requests among them.
bool XClient::windowManagerAnswers() {
  sendToRoot(window_, "_NET_REQUEST_FRAME_EXTENTS", {});
  return !property<Numbers>(window_, atom("_NET_FRAME_EXTENTS")).empty();
}

xcb_window_t XClient::selectionOwner(const std::string& name) {
  const auto reply = ask(get(), xcb_get_selection_owner, xcb_get_selection_owner_reply, atom(name));
  return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

xcb_window_t XClient::activeWindow() {
  const auto active = property<Numbers>(root(), atom("_NET_ACTIVE_WINDOW"));
  return active.empty() ? static_cast<xcb_window_t>(XCB_NONE) : active.front();
}

xcb_window_t XClient::inputFocus() {
  const auto reply = ask(get(), xcb_get_input_focus, xcb_get_input_focus_reply);
  return reply ? reply->focus : static_cast<xcb_window_t>(XCB_NONE);
}

std::vector<xcb_window_t> XClient::clientList() { return property<Numbers>(root(), atom("_NET_CLIENT_LIST")); }

std::vector<xcb_window_t> XClient::windowsTitled(const std::string& wanted) {
  std::vector<xcb_window_t> found = clientList();
  std::erase_if(found, [&](xcb_window_t window) { return title(window) != wanted; });
  return found;
}

std::string XClient::title(xcb_window_t window) {
  const auto name = property<std::string>(window, atom("_NET_WM_NAME"));
  return name.empty() ? property<std::string>(window, XCB_ATOM_WM_NAME) : name;
}

void XClient::requestClose(xcb_window_t window) {
  sendToRoot(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, 2, 0, 0, 0});
}

void XClient::requestActivation(xcb_window_t window) {
  sendToRoot(window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME, 0, 0, 0});
}

std::optional<TopLevel> XClient::describe(xcb_window_t window) {
  const auto attributes = ask(get(), xcb_get_window_attributes, xcb_get_window_attributes_reply, window);
  const auto geometry = ask(get(), xcb_get_geometry, xcb_get_geometry_reply, window);
  if (!attributes || !geometry || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY) return std::nullopt;
  return TopLevel{window,
                  {geometry->x, geometry->y, geometry->width, geometry->height},
                  attributes->map_state == XCB_MAP_STATE_VIEWABLE,
                  attributes->override_redirect != 0};
}

std::vector<xcb_window_t> XClient::childrenOf(xcb_window_t window) {
  const auto tree = ask(get(), xcb_query_tree, xcb_query_tree_reply, window);
  if (!tree) return {};
  const xcb_window_t* windows = xcb_query_tree_children(tree.get());
  return {windows, windows + xcb_query_tree_children_length(tree.get())};
}

std::vector<TopLevel> XClient::topLevels() {
  std::vector<TopLevel> found;
  for (const xcb_window_t window : childrenOf(root())) {
    if (const auto description = describe(window)) found.push_back(*description);
  }
  return found;
}

std::optional<Area> XClient::trayIconOf(pid_t process) {
  const pid_t tray = ownerOf(selectionOwner("_NET_SYSTEM_TRAY_S0"));
  return tray == 0 ? std::nullopt : windowInside(tray, process, root(), {0, 0});
}

std::optional<Area> XClient::windowInside(pid_t outer, pid_t inner, xcb_window_t window, Position corner) {
  const bool isOuter = ownerOf(window) == outer;
  for (const xcb_window_t child : childrenOf(window)) {
    const auto description = describe(child);
    if (!description || !description->isViewable) continue;
    Area area = description->area;
    area.x += corner.x;
    area.y += corner.y;
    if (isOuter && ownerOf(child) == inner) return area;
    if (const auto deeper = windowInside(outer, inner, child, {area.x, area.y})) return deeper;
  }
  return std::nullopt;
}

pid_t XClient::ownerOf(std::uint32_t resource) {
  const xcb_res_client_id_spec_t wanted{resource, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
  const auto reply = ask(get(), xcb_res_query_client_ids, xcb_res_query_client_ids_reply, 1, &wanted);
  if (!reply) return 0;
  const auto id = xcb_res_query_client_ids_ids_iterator(reply.get());
  if (id.rem == 0 || xcb_res_client_id_value_value_length(id.data) == 0) return 0;
  return static_cast<pid_t>(*xcb_res_client_id_value_value(id.data));
}

std::vector<std::uint32_t> XClient::connectionsOf(pid_t process) {
  std::vector<std::uint32_t> connections;
  const auto clients = ask(get(), xcb_res_query_clients, xcb_res_query_clients_reply);
  for (int i = 0; clients && i < xcb_res_query_clients_clients_length(clients.get()); ++i) {
    const std::uint32_t base = xcb_res_query_clients_clients(clients.get())[i].resource_base;
    if (ownerOf(base) == process) connections.push_back(base);
  }
  return connections;
}

bool XClient::isConnected(pid_t process) { return !connectionsOf(process).empty(); }

std::size_t XClient::resourceCount(pid_t process, const std::string& type) {
  const xcb_atom_t wanted = atom(type);
  std::size_t count = 0;
  for (const std::uint32_t base : connectionsOf(process)) {
    const auto held = ask(get(), xcb_res_query_client_resources, xcb_res_query_client_resources_reply, base);
    if (!held) continue;
    const xcb_res_type_t* types = xcb_res_query_client_resources_types(held.get());
    for (int j = 0; j < xcb_res_query_client_resources_types_length(held.get()); ++j) {
      if (types[j].resource_type == wanted) count += types[j].count;
    }
  }
  return count;
}

std::uint16_t XClient::keyboardState() {
  const auto state = ask(get(), xcb_query_pointer, xcb_query_pointer_reply, root());
  return state ? state->mask : std::uint16_t{0};
}

bool XClient::isKeyDown(std::uint8_t keyCode) {
  const auto keys = ask(get(), xcb_query_keymap, xcb_query_keymap_reply);
  return keys && ((keys->keys[keyCode / 8] >> (keyCode % 8)) & 1) != 0;
}

bool XClient::keyboardIsAtRest() {
  const auto keys = ask(get(), xcb_query_keymap, xcb_query_keymap_reply);
  return keys && keyboardState() == 0 &&
         std::all_of(std::begin(keys->keys), std::end(keys->keys), [](std::uint8_t bits) { return bits == 0; });
}

// Both requests reach the server at once, so that no other client is refused meanwhile.
bool XClient::keyboardIsFree() {
  const auto cookie = xcb_grab_keyboard(get(), 0, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  xcb_ungrab_keyboard(get(), XCB_CURRENT_TIME);
  const UniqueCPtr<xcb_grab_keyboard_reply_t, std::free> reply(xcb_grab_keyboard_reply(get(), cookie, nullptr));
  sync();
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool XClient::nothingIsGrabbed() {
  const auto cookie = xcb_grab_pointer(get(), 0, root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                                       XCB_NONE, XCB_CURRENT_TIME);
  xcb_ungrab_pointer(get(), XCB_CURRENT_TIME);
  const UniqueCPtr<xcb_grab_pointer_reply_t, std::free> reply(xcb_grab_pointer_reply(get(), cookie, nullptr));
  return keyboardIsFree() && reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool XClient::grabKey(std::uint8_t keyCode, std::uint16_t modifiers) {
  const auto cookie =
      xcb_grab_key_checked(get(), 0, root(), modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const UniqueCPtr<xcb_generic_error_t, std::free> error(xcb_request_check(get(), cookie));
  return !error;
}

void XClient::drainEvents() {
  while (const UniqueCPtr<xcb_generic_event_t, std::free> event{xcb_poll_for_event(get())}) {
    const int type = event->response_type & 0x7F;
    if (type == xfixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY) ++clipboardChanges_;
    if (type == XCB_SELECTION_NOTIFY) clipboardAnswered_ = true;
    if (type == XCB_PROPERTY_NOTIFY) lastTime_ = reinterpret_cast<xcb_property_notify_event_t&>(*event).time;
  }
}

std::optional<std::string> XClient::clipboardText() {
  const xcb_atom_t target = atom("RONDORA_TEST_CLIPBOARD");
  clipboardAnswered_ = false;
  xcb_delete_property(get(), window_, target);
  xcb_convert_selection(get(), window_, atom("CLIPBOARD"), atom("UTF8_STRING"), target, XCB_CURRENT_TIME);
  sync();
  const bool answered = waitUntil(
      [this] {
        drainEvents();
        return clipboardAnswered_;
      },
      std::chrono::seconds(5));
  if (!answered) return std::nullopt;
  const auto text = property<std::string>(window_, target);
  return text.empty() ? std::nullopt : std::optional(text);
}

std::size_t XClient::clipboardChanges() {
  sync();
  drainEvents();
  return clipboardChanges_;
}

Capture XClient::capture(Area area) {
  const int right = std::min<int>(area.x + area.width, screen_->width_in_pixels);
  const int bottom = std::min<int>(area.y + area.height, screen_->height_in_pixels);
  area.x = std::max(area.x, 0);
  area.y = std::max(area.y, 0);
  area.width = right - area.x;
  area.height = bottom - area.y;
  const auto image = ask(get(), xcb_get_image, xcb_get_image_reply, XCB_IMAGE_FORMAT_Z_PIXMAP, root(), area.x, area.y,
                         area.width, area.height, ~0U);
  if (!image) throw std::runtime_error("cannot capture the screen");
  const auto* first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
  return {area, {first, first + area.width * area.height}};
}

bool XClient::isPainted(const TopLevel& window) {
  const int left = std::max(0, -window.area.x);
  const int right = std::min<int>(window.area.width, screen_->width_in_pixels - window.area.x);
  if (right <= left) return false;
  const auto image = ask(get(), xcb_get_image, xcb_get_image_reply, XCB_IMAGE_FORMAT_Z_PIXMAP, window.window, left,
                         window.area.height / 2, right - left, 1, ~0U);
  if (!image) return false;
  const auto* bytes = xcb_get_image_data(image.get());
  return std::any_of(bytes, bytes + xcb_get_image_data_length(image.get()), [](auto byte) { return byte != 0; });
}

Capture XClient::settledCapture(Area area, const std::function<bool()>& isQuiet) {
  Capture last = capture(area);
  int same = 0;
  bool wasQuiet = false;
  const auto isSettled = [&] {
    wasQuiet = wasQuiet || isQuiet();
    Capture next = capture(area);
    if (next != last) same = 0, wasQuiet = false;
    last = std::move(next);
    return ++same >= kSettledCaptures && wasQuiet;
  };
  waitUntil(isSettled, kSettlingPatience);
  return last;
}

}  // namespace rondora::live

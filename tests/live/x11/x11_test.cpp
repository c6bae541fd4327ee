#include "x11_test.h"

#include <poll.h>

#include <array>
#include <chrono>
#include <utility>

#include "desktop/wait.h"
#include "desktop/x_reply.h"
#include "platform/linux/x11/connection/xcb_xkb.h"

namespace rondora::live {
namespace {

std::string describe(const KeyEvent& event) {
  const char* what = event.type == KeyEventType::keyUp ? "up " : event.isRepeat ? "repeat " : "down ";
  return what + (event.keyCode == kSpace ? std::string("space") : event.charactersIgnoringModifiers);
}

}  // namespace

xcb_window_t coverArea(xcb_connection_t* connection, const Area& area) {
  const xcb_window_t window = xcb_generate_id(connection);
  const std::uint32_t values[] = {kCoverColor, 1,
                                  XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                      XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window,
                    xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, static_cast<std::int16_t>(area.x),
                    static_cast<std::int16_t>(area.y), static_cast<std::uint16_t>(area.width),
                    static_cast<std::uint16_t>(area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                    XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
  xcb_map_window(connection, window);
  return window;
}

bool Bystander::grabKeyboard() {
  const auto reply = ask(get(), xcb_grab_keyboard, xcb_grab_keyboard_reply, 0, root(), XCB_CURRENT_TIME,
                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool Bystander::grabPointer() {
  const auto reply = ask(get(), xcb_grab_pointer, xcb_grab_pointer_reply, 0, root(), 0, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void Bystander::ungrab() {
  xcb_ungrab_keyboard(get(), XCB_CURRENT_TIME);
  xcb_ungrab_pointer(get(), XCB_CURRENT_TIME);
  sync();
}

void Bystander::takeFocus() {
  xcb_set_input_focus(get(), XCB_INPUT_FOCUS_POINTER_ROOT, cover({0, 0, 10, 10}), XCB_CURRENT_TIME);
  sync();
}

xcb_window_t Bystander::cover(const Area& area) {
  const xcb_window_t window = coverArea(get(), area);
  sync();
  return window;
}

std::vector<int> Bystander::eventTypes() {
  sync();
  std::vector<int> types;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(get())}) types.push_back(event->response_type);
  return types;
}

std::string Bystander::keys() {
  sync();
  std::string text;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(get())}) {
    if (event->response_type != XCB_KEY_PRESS && event->response_type != XCB_KEY_RELEASE) continue;
    const int code = reinterpret_cast<const xcb_key_press_event_t&>(*event).detail;
    text += (event->response_type == XCB_KEY_PRESS ? "+" : "-") + std::to_string(code) + " ";
  }
  return text;
}

void Bystander::ungrabKey(std::uint8_t keyCode, std::uint16_t modifiers) {
  xcb_ungrab_key(get(), keyCode, root(), modifiers);
  sync();
}

X11Test::X11Test(std::vector<std::string> serverArguments, double pixelsPerPoint)
    : server_("1280x800x24", serverArguments),
      user_(server_.display()),
      handle_(xcb_connect(server_.display().c_str(), nullptr)),
      connection_(handle_.get(), 0, pixelsPerPoint),
      keymap_(connection_, time_),
      rawReleases_(connection_),
      keys_(connection_, keymap_, rawReleases_, time_),
      eventTaps_(connection_, keymap_, keys_, rawReleases_, time_),
      hotkeys_(connection_, keymap_, keys_),
      monitors_(keymap_, keys_),
      inputGrab_(connection_, keys_, time_),
      pointer_(connection_, keys_, inputGrab_),
      panels_(connection_, inputGrab_, rasterizer_) {
  user_.beforeInput([this] { ask(handle_.get(), xcb_get_input_focus, xcb_get_input_focus_reply); });
  reportHandler_ = hotkeys_.installEventHandler([this](const HotKeyEvent* event) {
    reports_.push_back((event->kind == kEventHotKeyPressed ? "+" : "-") + std::to_string(event->id.id) +
                       (event->modifiers == ModifierHold::latched ? " latched" : ""));
    return 0;
  });
  keyMonitor_ = monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
    keyEvents_.push_back(event);
    return false;
  });
}

X11Test::~X11Test() {
  drain();
  EXPECT_EQ(errorCount_, 0) << "the server refused a request";
}

bool X11Test::handleEvents() {
  bool any = false;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(handle_.get())}) {
    any = true;
    if (event->response_type == 0) ++errorCount_;
    connection_.dispatch(*event);
  }
  time_.runUntilIdle();
  return any;
}

bool X11Test::eventually(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    connection_.flush();
    handleEvents();
    pollfd waiting{xcb_get_file_descriptor(handle_.get()), POLLIN, 0};
    if (poll(&waiting, 1, 1) == 0) time_.advance(0.001);
  }
  return true;
}

void X11Test::drain() {
  do {
    ask(handle_.get(), xcb_get_input_focus, xcb_get_input_focus_reply);
  } while (handleEvents());
}

bool X11Test::registerHotkey(std::uint32_t keyCode, std::uint32_t carbonModifiers, std::uint32_t id) {
  auto registration = hotkeys_.registerEventHotKey(keyCode, carbonModifiers, {0, id});
  if (!registration) return false;
  registrations_.push_back(std::move(*registration));
  return true;
}

void X11Test::pressChord() {
  for (const std::uint8_t code : {key::control, key::alt, key::space}) user_.keyDown(code);
}

void X11Test::releaseChord() {
  for (const std::uint8_t code : {key::space, key::alt, key::control}) user_.keyUp(code);
}

void X11Test::tapChord() {
  pressChord();
  releaseChord();
}

void X11Test::enableStickyKeys() {
  constexpr std::uint32_t kSticky = XCB_XKB_BOOL_CTRL_STICKY_KEYS, kEnabledControls = 1U << 31;
  xcb_xkb_set_controls(handle_.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSticky, kSticky,
                       kEnabledControls, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                       std::array<std::uint8_t, 32>().data());
  drain();
}

std::vector<std::string> X11Test::reports() {
  drain();
  return std::exchange(reports_, {});
}

std::vector<std::string> X11Test::keysSeen() {
  drain();
  std::vector<std::string> texts;
  for (const KeyEvent& event : std::exchange(keyEvents_, {})) texts.push_back(describe(event));
  return texts;
}

std::unique_ptr<OverlayPanel> X11Test::openPanel(Rect frame) {
  auto panel = panels_.makePanel(PieView::kPanelStyle, frame, sink_);
  panel->setPicture({frame.size, {}, {{{{0, 0}, frame.size}, {{}, {}, {}}}}});
  panel->orderFrontRegardless();
  panel->makeKey();
  return panel;
}

void X11Test::runTool(const std::vector<std::string>& command) {
  ChildProcess tool(command, {{"DISPLAY", server_.display()}});
  ASSERT_EQ(tool.wait(), 0) << command.front();
}

}  // namespace rondora::live

#include "x11_test.h"

#include <array>
#include <map>
#include <utility>

#include "support/x_reply.h"

namespace rondora::live {
namespace {

std::string describe(const KeyEvent& event) {
  const char* what = event.type == KeyEventType::keyUp ? "up " : event.isRepeat ? "repeat " : "down ";
  return what + (event.keyCode == kSpace ? std::string("space") : event.charactersIgnoringModifiers);
}

}  // namespace

bool Bystander::grabKeyboard() {
  const auto reply = ask(get(), xcb_grab_keyboard, xcb_grab_keyboard_reply, 0, root(), XCB_CURRENT_TIME,
                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void Bystander::ungrabKeyboard() {
  xcb_ungrab_keyboard(get(), XCB_CURRENT_TIME);
  sync();
}

bool Bystander::grabPointer() {
  const auto reply = ask(get(), xcb_grab_pointer, xcb_grab_pointer_reply, 0, root(), 0, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void Bystander::ungrabPointer() {
  xcb_ungrab_pointer(get(), XCB_CURRENT_TIME);
  sync();
}

void Bystander::takeFocus() {
  const xcb_window_t window = coverArea(0, 0, 10, 10);
  const std::uint32_t keys = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
  xcb_change_window_attributes(get(), window, XCB_CW_EVENT_MASK, &keys);
  xcb_set_input_focus(get(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
  sync();
}

xcb_window_t Bystander::coverArea(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height) {
  const xcb_window_t window = xcb_generate_id(get());
  const std::uint32_t values[] = {kColor, 1, XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE};
  xcb_create_window(get(), XCB_COPY_FROM_PARENT, window, root(), x, y, width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                    XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
  xcb_map_window(get(), window);
  sync();
  return window;
}

std::vector<int> Bystander::eventTypes() {
  sync();
  std::vector<int> types;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(get())}) types.push_back(event->response_type);
  return types;
}

X11Test::X11Test(std::vector<std::string> serverArguments, double pixelsPerPoint)
    : server_("1280x800x24", serverArguments),
      user_(server_.display()),
      handle_(xcb_connect(server_.display().c_str(), nullptr)),
      loop_(handle_.get()),
      connection_(handle_.get(), 0, pixelsPerPoint),
      keymap_(connection_, loop_),
      rawReleases_(connection_),
      keyboard_(connection_, rawReleases_, loop_),
      hotkeys_(connection_, keymap_, keyboard_),
      monitors_(keymap_, keyboard_),
      inputGrab_(connection_, keyboard_, loop_),
      pointer_(connection_, inputGrab_),
      panels_(connection_, inputGrab_, rasterizer_) {
  reportHandler_ = hotkeys_.installEventHandler([this](const HotKeyEvent* event) {
    reports_.push_back((event->kind == kEventHotKeyPressed ? "+" : "-") + std::to_string(event->id.id));
    return 0;
  });
  keyMonitor_ = monitors_.addLocalMonitor(kKeyDownAndKeyUpMask, [this](const KeyEvent& event) {
    keyEvents_.push_back(event);
    return false;
  });
}

X11Test::~X11Test() {
  drain();
  EXPECT_EQ(loop_.errorCount(), 0) << "the server refused a request";
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
  auto panel = panels_.makePanel({}, frame, sink_);
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

#include "support/stage.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "desktop/wait.h"

namespace rondora::bench {
namespace {

using namespace live;
using std::chrono::milliseconds;

// In pixels; both rings lie in between.
constexpr int kInnerRadius = 40;
constexpr int kOuterRadius = 220;
constexpr std::size_t kVisible = 50;  // changed pixels
constexpr milliseconds kLimit{5000};
constexpr milliseconds kStillness{60};
/// Between two rings. A ring of ours that opens sooner takes no snapshot, which costs less.
constexpr milliseconds kPause{150};

void require(bool condition, const std::string& failure) {
  if (!condition) throw std::runtime_error(failure);
}

}  // namespace

// With a tray: without one the program shows its settings window.
Stage::Stage(std::string name, Compositor compositor)
    : desktop({WindowManager::openbox, compositor, Tray::tint2}), client(desktop.display()), name_(std::move(name)) {
  showBackground();
  client.movePointer(kCenter);
  watcher.emplace(desktop.display(), kCenter, kInnerRadius, kOuterRadius);
  rememberBackground();
}

void Stage::rememberBackground() {
  watcher->lastChange(milliseconds(300), kLimit);
  watcher->keepAsBaseline();
}

void Stage::setMonitors(const std::vector<Area>& monitors) {
  desktop.setMonitors(monitors);
  rememberBackground();
}

/// A window that fills the screen and has the focus, so that captures have a background.
void Stage::showBackground() {
  background_ = desktop.start({"xterm", "-fullscreen", "-T", "Background", "-e", "cat"});
  require(waitUntil([this] { return client.title(client.activeWindow()) == "Background"; }), "no background");
}

// All keys on one device: at each change of the device the server announces a new keyboard map, which the window
// manager reads before anything else.
Moment Stage::press(std::uint8_t key) {
  // The peer holds the keyboard grab longer than its ring is visible.
  require(waitUntil([this] { return client.nothingIsGrabbed(); }), "the keyboard stays taken");
  client.fakeKeyDown(key::control);
  client.fakeKeyDown(key::alt);
  return watcher->press(key);
}

void Stage::release(std::uint8_t key) {
  client.fakeKeyUp(key);
  client.fakeKeyDown(key::escape);
  client.fakeKeyUp(key::escape);
  client.fakeKeyUp(key::alt);
  client.fakeKeyUp(key::control);
}

Opening Stage::open(std::uint8_t key) {
  return openBy([&] { return press(key); });
}

Opening Stage::openBy(const std::function<Moment()>& trigger) {
  const Moment pressed = trigger();
  const auto first = watcher->firstChange(kVisible, kLimit);
  require(first.has_value(), "no ring");
  savePicture("first");
  const auto complete = watcher->lastChange(kStillness, kLimit);
  require(complete.has_value(), "the ring never stands still");
  savePicture("complete");
  return {millisecondsBetween(pressed, *first), millisecondsBetween(pressed, *complete)};
}

void Stage::close(std::uint8_t key) {
  release(key);
  requireBaseline(kPause);
}

void Stage::choose(std::uint8_t key, std::uint8_t label) {
  client.fakeKeyUp(key);
  client.fakeKeyDown(label);
  client.fakeKeyUp(label);
  client.fakeKeyUp(key::alt);
  client.fakeKeyUp(key::control);
  requireBaseline(kPause);
}

Opening Stage::openAndClose(std::uint8_t key) {
  const Opening opening = open(key);
  close(key);
  return opening;
}

void Stage::recover() {
  for (const std::uint8_t key : {key::space, key::b, key::q, key::n}) client.fakeKeyUp(key);
  release(key::escape);
  release(key::escape);
  require(watcher->waitForBaseline(kPause, 3 * kLimit), "the screen does not come back");
}

void Stage::openAndCloseQuickly(std::uint8_t key) {
  press(key);
  require(watcher->firstChange(kVisible, kLimit).has_value(), "no ring on key " + std::to_string(key));
  release(key);
  requireBaseline(milliseconds(2));
}

std::vector<Moment> Stage::changesWhileOpening(std::uint8_t key, milliseconds duration) {
  press(key);
  return watcher->changesDuring(duration);
}

void Stage::requireBaseline(milliseconds stillness) {
  const bool isBack = watcher->waitForBaseline(stillness, kLimit);
  if (!isBack) savePicture("stuck");
  require(isBack, "the ring does not go away");
}

void Stage::savePicture(const std::string& what) {
  static const char* folder = std::getenv("RONDORA_BENCH_PICTURES");
  if (folder == nullptr) return;
  watcher->save(std::filesystem::path(folder) / (name_ + '-' + std::to_string(picture_++) + '-' + what + ".ppm"));
}

}  // namespace rondora::bench

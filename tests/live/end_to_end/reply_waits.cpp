// Preloaded into the program: writes a line to the file in $REPLY_WAITS for each key press that the program receives
// ("key"), each picture that its main thread puts on the screen ("put") and each reply that its main thread waits for
// ("wait EXTENSION MINOR-OPCODE", with "core" and the opcode for the core protocol).
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <string>

namespace {

struct Request {
  xcb_connection_t* connection = nullptr;
  std::uint32_t sequence = 0;
  std::string name;
};

std::mutex mutex;
std::array<Request, 4096> requests;

void write(const std::string& line) {
  static const int file = open(std::getenv("REPLY_WAITS"), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (::write(file, (line + '\n').c_str(), line.size() + 1) < 0) std::abort();
}

bool isMainThread() { return gettid() == getpid(); }

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

xcb_generic_event_t* noting(xcb_generic_event_t* event) {
  if (event != nullptr && event->response_type == XCB_KEY_PRESS) write("key");
  return event;
}

void noteWait(xcb_connection_t* connection, std::uint32_t sequence) {
  if (!isMainThread()) return;
  const std::lock_guard lock(mutex);
  const Request& request = requests[sequence % requests.size()];
  const bool isKnown = request.connection == connection && request.sequence == sequence;
  write("wait " + (isKnown ? request.name : "unknown"));
}

}  // namespace

extern "C" {

std::uint64_t xcb_send_request_with_fds64(xcb_connection_t* c, int flags, struct iovec* vector,
                                          const xcb_protocol_request_t* request, unsigned int fdCount, int* fds) {
  static const auto real = next<decltype(xcb_send_request_with_fds64)>("xcb_send_request_with_fds64");
  const std::string name =
      (request->ext == nullptr ? "core" : request->ext->name) + (' ' + std::to_string(request->opcode));
  if ((name == "core 72" || name == "MIT-SHM 3") && isMainThread()) write("put");
  const std::uint64_t sequence = real(c, flags, vector, request, fdCount, fds);
  const std::lock_guard lock(mutex);
  requests[sequence % requests.size()] = {c, static_cast<std::uint32_t>(sequence), name};
  return sequence;
}

void* xcb_wait_for_reply(xcb_connection_t* c, unsigned int request, xcb_generic_error_t** error) {
  static const auto real = next<decltype(xcb_wait_for_reply)>("xcb_wait_for_reply");
  noteWait(c, request);
  return real(c, request, error);
}

void* xcb_wait_for_reply64(xcb_connection_t* c, std::uint64_t request, xcb_generic_error_t** error) {
  static const auto real = next<decltype(xcb_wait_for_reply64)>("xcb_wait_for_reply64");
  noteWait(c, static_cast<std::uint32_t>(request));
  return real(c, request, error);
}

xcb_generic_error_t* xcb_request_check(xcb_connection_t* c, xcb_void_cookie_t cookie) {
  static const auto real = next<decltype(xcb_request_check)>("xcb_request_check");
  noteWait(c, cookie.sequence);
  return real(c, cookie);
}

xcb_generic_event_t* xcb_wait_for_event(xcb_connection_t* c) {
  static const auto real = next<decltype(xcb_wait_for_event)>("xcb_wait_for_event");
  return noting(real(c));
}

xcb_generic_event_t* xcb_poll_for_event(xcb_connection_t* c) {
  static const auto real = next<decltype(xcb_poll_for_event)>("xcb_poll_for_event");
  return noting(real(c));
}

xcb_generic_event_t* xcb_poll_for_queued_event(xcb_connection_t* c) {
  static const auto real = next<decltype(xcb_poll_for_queued_event)>("xcb_poll_for_queued_event");
  return noting(real(c));
}

}  // extern "C"

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/linux/menus/bus_connection.h"

namespace rondora::menus {

/// A request without an answer for so long means that its application hangs.
inline constexpr double kMaxRequestSeconds = 0.2;

/// A time limit that several steps share.
class Deadline {
 public:
  explicit Deadline(double seconds)
      : end_(Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds))) {}
  /// Negative when it is over.
  double secondsLeft() const { return std::chrono::duration<double>(end_ - Clock::now()).count(); }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point end_;
};

struct BusObject {
  std::string service;
  std::string path;
};

struct BusMethod {
  const char* interface;
  const char* name;
};

/// The bus itself.
inline constexpr const char* kBusInterface = "org.freedesktop.DBus";
extern const BusObject kBusObject;

/// Method calls whose replies are awaited together. One thread.
class CallBatch {
 public:
  /// Called within `run`; may add calls. Not called for an error reply.
  using Handler = std::function<void(sd_bus_message& reply)>;

  /// `seconds` limits all calls together, from now on; the connection must outlive the batch.
  CallBatch(BusConnection& connection, double seconds);
  /// Drops the calls without a reply.
  ~CallBatch();
  CallBatch(const CallBatch&) = delete;
  CallBatch& operator=(const CallBatch&) = delete;

  /// `types` and `arguments` as for sd_bus_message_append.
  template <class... Arguments>
  void call(const BusObject& object, const BusMethod& method, Handler handler, const char* types = nullptr,
            Arguments... arguments) {
    BusMessage message = makeCall(object, method);
    if (message && types) sd_bus_message_append(message.get(), types, arguments...);
    add(std::move(message), std::move(handler));
  }
  /// A call with arguments still to be appended; null without a bus.
  BusMessage makeCall(const BusObject& object, const BusMethod& method) const;
  void add(BusMessage message, Handler handler);
  /// Sends the calls, at most `kMaxInFlight` ahead of their replies, and returns when all are answered. False when a
  /// request took longer than `kMaxRequestSeconds`, all of them longer than the limit, or the bus failed.
  bool run();

  BusConnection& connection() const { return connection_; }

  static constexpr std::size_t kMaxInFlight = 256;

 private:
  struct Pending;
  using Clock = std::chrono::steady_clock;

  static int onReply(sd_bus_message* reply, void* pending, sd_bus_error* error);
  void finish(Pending& pending, sd_bus_message& reply);
  bool send();
  bool wait();
  std::chrono::microseconds remaining() const;

  BusConnection& connection_;
  sd_bus* bus_;
  Clock::time_point deadline_;
  std::deque<std::unique_ptr<Pending>> waiting_;
  std::size_t inFlight_ = 0;
  std::deque<std::unique_ptr<Pending>> sent_;
  bool hasFailed_ = false;
};

/// Asks the bus for the process behind a name.
void requestProcess(CallBatch& batch, const std::string& service, std::function<void(std::int32_t process)> take);

/// The next value of the message; empty when it is of another type.
std::string readText(sd_bus_message& message);

}  // namespace rondora::menus

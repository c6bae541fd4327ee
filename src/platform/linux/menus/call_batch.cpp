#include "platform/linux/menus/call_batch.h"

#include <algorithm>

namespace rondora::menus {
namespace {

using Slot = UniqueCPtr<sd_bus_slot, sd_bus_slot_unref>;
using std::chrono::duration_cast;
using std::chrono::microseconds;

constexpr microseconds kMaxRequest = duration_cast<microseconds>(std::chrono::duration<double>(kMaxRequestSeconds));

}  // namespace

const BusObject kBusObject{"org.freedesktop.DBus", "/org/freedesktop/DBus"};

struct CallBatch::Pending {
  CallBatch& batch;
  BusMessage message;
  Handler handler;
  Slot slot;
};

CallBatch::CallBatch(BusConnection& connection, double seconds)
    : connection_(connection),
      bus_(connection.get()),
      deadline_(Clock::now() + duration_cast<Clock::duration>(std::chrono::duration<double>(seconds))) {}

CallBatch::~CallBatch() = default;

BusMessage CallBatch::makeCall(const BusObject& object, const BusMethod& method) const {
  sd_bus_message* message = nullptr;
  if (!bus_) return nullptr;
  const int result = sd_bus_message_new_method_call(bus_, &message, object.service.c_str(), object.path.c_str(),
                                                    method.interface, method.name);
  return BusMessage(result < 0 ? nullptr : message);
}

void CallBatch::add(BusMessage message, Handler handler) {
  if (!message) return;
  waiting_.push_back(std::make_unique<Pending>(Pending{*this, std::move(message), std::move(handler), nullptr}));
}

bool CallBatch::run() {
  if (!bus_) return false;
  while (!hasFailed_ && (inFlight_ > 0 || !waiting_.empty())) {
    if (!send() || !wait()) hasFailed_ = true;
  }
  waiting_.clear();
  sent_.clear();
  inFlight_ = 0;
  if (hasFailed_) bus_ = nullptr;  // may be closed
  return !hasFailed_;
}

bool CallBatch::send() {
  while (inFlight_ < kMaxInFlight && !waiting_.empty()) {
    auto call = std::move(waiting_.front());
    waiting_.pop_front();
    const auto limit = std::min(kMaxRequest, remaining());
    if (limit <= limit.zero()) return false;
    sd_bus_slot* slot = nullptr;
    const int result = sd_bus_call_async(bus_, &slot, call->message.get(), &CallBatch::onReply, call.get(),
                                         static_cast<std::uint64_t>(limit.count()));
    if (result < 0) return false;
    call->slot.reset(slot);
    call->message.reset();
    sent_.push_back(std::move(call));
    ++inFlight_;
  }
  return true;
}

/// A time-out is handled by sd_bus_process as well, which then returns 0: the count decides whether to wait.
bool CallBatch::wait() {
  const std::size_t before = inFlight_;
  const int handled = sd_bus_process(bus_, nullptr);
  if (handled < 0) connection_.close();
  if (handled < 0 || hasFailed_) return false;
  if (handled > 0 || inFlight_ != before || inFlight_ == 0) return true;
  const auto limit = remaining();
  return limit > limit.zero() && sd_bus_wait(bus_, static_cast<std::uint64_t>(limit.count())) >= 0;
}

microseconds CallBatch::remaining() const { return duration_cast<microseconds>(deadline_ - Clock::now()); }

int CallBatch::onReply(sd_bus_message* reply, void* pending, sd_bus_error* /*error*/) {
  auto& call = *static_cast<Pending*>(pending);
  call.batch.finish(call, *reply);
  return 0;
}

void CallBatch::finish(Pending& pending, sd_bus_message& reply) {
  --inFlight_;
  if (sd_bus_message_is_method_error(&reply, SD_BUS_ERROR_NO_REPLY) > 0) hasFailed_ = true;
  if (sd_bus_message_is_method_error(&reply, nullptr) == 0) pending.handler(reply);
}

void requestProcess(CallBatch& batch, const std::string& service, std::function<void(std::int32_t process)> take) {
  const auto read = [take = std::move(take)](sd_bus_message& reply) {
    std::uint32_t process = 0;
    if (sd_bus_message_read_basic(&reply, 'u', &process) > 0) take(static_cast<std::int32_t>(process));
  };
  batch.call(kBusObject, {kBusInterface, "GetConnectionUnixProcessID"}, read, "s", service.c_str());
}

std::string readText(sd_bus_message& message) {
  const char* text = nullptr;
  return sd_bus_message_read_basic(&message, 's', &text) > 0 ? text : "";
}

}  // namespace rondora::menus

#pragma once

#include <gio/gio.h>

#include <functional>
#include <string>

#include "base/owned.h"

namespace rondora::live {

/// A program on the session bus that owns a name and answers calls.
class BusService {
 public:
  /// Called on the thread of the bus with caller, method and arguments. Returns the reply as a tuple; null leaves the
  /// call to the bus.
  using Answer = std::function<GVariant*(const std::string& caller, const std::string& method, GVariant* arguments)>;

  /// Throws std::runtime_error without a bus, or if the name is taken.
  BusService(const std::string& busAddress, const char* name, Answer answer);
  ~BusService();
  BusService(const BusService&) = delete;
  BusService& operator=(const BusService&) = delete;

 private:
  static GDBusMessage* handle(GDBusConnection* bus, GDBusMessage* message, gboolean isIncoming, gpointer self);

  Answer answer_;
  UniqueCPtr<GDBusConnection, g_object_unref> bus_;
};

}  // namespace rondora::live

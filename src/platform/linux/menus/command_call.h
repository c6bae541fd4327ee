#pragma once

#include <functional>

#include "platform/linux/menus/call_batch.h"

namespace rondora::menus {

/// Sends the request that runs a command and, behind it, a harmless one to the same application. A command that opens a
/// dialog may answer only when the dialog closes, so the answer to the second request also shows that it was taken; one
/// that ends the application may not answer at all. `isTaken` judges the command's answer.
bool sendCommand(CallBatch& batch, BusMessage command, BusMessage harmless,
                 std::function<bool(sd_bus_message& reply)> isTaken);

}  // namespace rondora::menus

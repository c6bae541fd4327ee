#pragma once

namespace rondora::x11 {

/// Messages from the program to its guard, one byte each.
enum class GuardMessage : char {
  /// The main loop runs and holds a grab or a typed key. Repeated every `kBeatSeconds` until `ungrabbed`.
  beat = 'b',
  ungrabbed = 'u',
  endsInOrder = 'e',
};

inline constexpr double kBeatSeconds = 0.5;

/// The guard's process name, and argument 0 of a guard with a process image of its own.
inline constexpr const char* kGuardName = "rondora-keys";
/// True for the arguments of such a guard.
bool isGuard(char** arguments);
/// Where it finds its end of the socket.
inline constexpr int kGuardDescriptor = 3;

/// In the environment of a program that its guard has started again: the number of starts in the present minute, and
/// the second of CLOCK_MONOTONIC at which that minute began.
inline constexpr const char* kRestartsVariable = "RONDORA_RESTARTS";

/// Runs the guard of the process that made the socket. `arguments` are the program's own, ending in a null pointer.
///
/// When the program dies without `endsInOrder`, releases every key of the XTEST keyboard. When it misses its beats for
/// two seconds, kills it, which ends its grabs, and starts it again with the same arguments and environment, three
/// times in a minute at most. Without a grab or a typed key it waits without a time-out.
[[noreturn]] void runGuard(int descriptor, char** arguments);

}  // namespace rondora::x11

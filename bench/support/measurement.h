#pragma once

#include <functional>
#include <string>

namespace rondora::bench {

/// A number from the environment, such as RONDORA_BENCH_OPENINGS.
int numberFromEnvironment(const char* variable, int fallback);

/// Runs a program's measurements; on an exception prints it to standard error. Returns the exit status.
int runMeasurement(const std::string& program, const std::function<void()>& measure);

}  // namespace rondora::bench

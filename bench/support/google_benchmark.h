#pragma once

#include <string>

namespace rondora::bench {

/// Runs what BENCHMARK registered and prints one JSON object a line, named `prefix` and the benchmark's name: the CPU
/// time of one call, of several repetitions the median. Returns the status that the program ends with.
int runBenchmarks(int argc, char** argv, const std::string& prefix);

}  // namespace rondora::bench

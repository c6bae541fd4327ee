#pragma once

#include <string>

namespace rondora::bench {

/// Runs all registered benchmarks and prints one JSON object per line, named `prefix` plus the benchmark's name: the
/// CPU time of one call, the median of several repetitions. Returns the exit status.
int runBenchmarks(int argc, char** argv, const std::string& prefix);

}  // namespace rondora::bench

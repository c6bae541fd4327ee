#include "support/google_benchmark.h"

#include <benchmark/benchmark.h>

#include <ostream>
#include <utility>
#include <vector>

#include "support/statistics.h"

namespace rondora::bench {
namespace {

class JsonLines : public benchmark::BenchmarkReporter {
 public:
  explicit JsonLines(std::string prefix) : prefix_(std::move(prefix)) {}

  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    Samples repetitions;
    for (const Run& run : runs) {
      if (run.error_occurred) {
        failed_ = true;
        GetErrorStream() << run.benchmark_name() << ": " << run.error_message << '\n';
      } else if (run.run_type == Run::RT_Iteration) {
        repetitions.add(run.GetAdjustedCPUTime());
      }
    }
    if (repetitions.isEmpty()) return;
    std::string name = runs.front().run_name.function_name;
    if (!runs.front().run_name.args.empty()) name += '.' + runs.front().run_name.args;
    reportValue(prefix_ + name, benchmark::GetTimeUnitString(runs.front().time_unit), repetitions.percentile(50));
  }

  bool failed() const { return failed_; }

 private:
  const std::string prefix_;
  bool failed_ = false;
};

}  // namespace

int runBenchmarks(int argc, char** argv, const std::string& prefix) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=3";
  arguments.insert(arguments.begin() + 1, repetitions.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  JsonLines reporter(prefix);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.failed() ? 1 : 0;
}

}  // namespace rondora::bench

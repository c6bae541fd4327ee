#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace rondora::bench {

/// The samples of one run, in one unit.
class Samples {
 public:
  void add(double value) { values_.push_back(value); }
  std::size_t count() const { return values_.size(); }
  bool isEmpty() const { return values_.empty(); }
  /// The value that `percent` of the samples do not exceed (nearest rank); 0 without samples.
  double percentile(double percent) const;
  double maximum() const { return percentile(100); }

 private:
  std::vector<double> values_;
};

/// Prints one line with a JSON object: name, unit, samples per run, p50, p95, p99; with several runs the median of
/// each.
void report(const std::string& name, const std::string& unit, const std::vector<Samples>& runs);
void report(const std::string& name, const std::string& unit, const Samples& samples);
/// A single figure.
void reportValue(const std::string& name, const std::string& unit, double value);

}  // namespace rondora::bench

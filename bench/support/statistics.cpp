#include "support/statistics.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>

namespace rondora::bench {
namespace {

double median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double rounded(double value) { return std::round(value * 1000) / 1000; }

}  // namespace

double Samples::percentile(double percent) const {
  if (values_.empty()) return 0;
  std::vector<double> sorted = values_;
  std::sort(sorted.begin(), sorted.end());
  const double rank = std::ceil(percent / 100 * static_cast<double>(sorted.size()));
  const auto index = static_cast<std::size_t>(std::max(rank, 1.0)) - 1;
  return sorted[std::min(index, sorted.size() - 1)];
}

void report(const std::string& name, const std::string& unit, const std::vector<Samples>& runs) {
  if (runs.empty() || runs.front().isEmpty()) return;
  nlohmann::ordered_json line{{"name", name}, {"unit", unit}, {"n", runs.front().count()}};
  if (runs.size() > 1) line["runs"] = runs.size();
  for (const auto& [key, percent] : {std::pair{"p50", 50.0}, {"p95", 95.0}, {"p99", 99.0}}) {
    std::vector<double> figures;
    for (const Samples& run : runs) figures.push_back(run.percentile(percent));
    line[key] = rounded(median(figures));
  }
  std::cout << line.dump() << std::endl;
}

void report(const std::string& name, const std::string& unit, const Samples& samples) {
  report(name, unit, std::vector{samples});
}

void reportValue(const std::string& name, const std::string& unit, double value) {
  std::cout << nlohmann::ordered_json{{"name", name}, {"unit", unit}, {"value", rounded(value)}}.dump() << std::endl;
}

}  // namespace rondora::bench

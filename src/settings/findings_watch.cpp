#include "settings/findings_watch.h"

#include <memory>
#include <utility>

namespace rondora {
namespace {

constexpr double kInterval = 1.0;   // seconds
constexpr double kTolerance = 0.2;  // seconds

}  // namespace

SessionFindings failures(SessionFindings findings) {
  std::erase_if(findings, [](const SessionFinding& finding) { return finding.works; });
  return findings;
}

Subscription watchFindings(MainQueue& mainQueue, std::function<SessionFindings()> read, FindingsObserver observer) {
  const auto last = std::make_shared<SessionFindings>(read());
  observer(*last);
  return mainQueue.timer(kInterval, kTolerance, [last, read = std::move(read), observer = std::move(observer)] {
    auto findings = read();
    if (findings == *last) return;
    *last = std::move(findings);
    observer(*last);
  });
}

}  // namespace rondora

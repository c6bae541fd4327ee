#include "icons/picture_quarantine.h"

#include <cstddef>
#include <locale>
#include <sstream>
#include <string>
#include <utility>

#include "base/fnv.h"
#include "base/program_identity.h"

namespace rondora {
namespace {

constexpr const char* kFile = "refused-pictures";
constexpr double kWeek = 7.0 * 24 * 60 * 60;  // seconds
/// When more are added, the list starts over.
constexpr std::size_t kMaxRefused = 1024;

}  // namespace

PictureQuarantine::PictureQuarantine(const Ports& ports)
    : ports_(ports), folder_(ports.files.cachesFolder() / program_identity::kName) {
  load();
}

Subscription PictureQuarantine::decode(PictureRequest request, Completion completion) {
  if (request.version.empty()) return ports_.decoder.decode(std::move(request), std::move(completion));
  const Key key = fnv1a(request.version, fnv1a(request.content));
  if (contains(key)) {
    return ports_.mainQueue.workItem(0, [completion = std::move(completion)] {
      completion({.outcome = PictureResult::Outcome::gaveUp, .bytes = {}});
    });
  }
  return ports_.decoder.decode(
      std::move(request),
      weakSelf_.bind([key, completion = std::move(completion)](PictureQuarantine& self, const PictureResult& result) {
        if (result.outcome == PictureResult::Outcome::gaveUp) self.add(key);
        completion(result);
      }));
}

bool PictureQuarantine::contains(Key key) const {
  const auto found = refusedSince_.find(key);
  return found != refusedSince_.end() && !isOutdated(found->second);
}

bool PictureQuarantine::isOutdated(WallTime since) const {
  const double age = ports_.clock.now() - since;
  return !(age >= 0 && age < kWeek);  // negative: the clock was set back
}

/// One line per file: its key and the time in seconds. Malformed lines are skipped.
void PictureQuarantine::load() {
  std::istringstream lines(ports_.files.read(folder_ / kFile).value_or(std::string()));
  lines.imbue(std::locale::classic());
  for (std::string line; refusedSince_.size() < kMaxRefused && std::getline(lines, line);) {
    std::istringstream fields(line);
    fields.imbue(std::locale::classic());
    Key key = 0;
    WallTime since = 0;
    if (fields >> key >> since) refusedSince_[key] = since;
  }
}

void PictureQuarantine::add(Key key) {
  std::erase_if(refusedSince_, [this](const auto& entry) { return isOutdated(entry.second); });
  if (refusedSince_.size() >= kMaxRefused) refusedSince_.clear();
  refusedSince_[key] = ports_.clock.now();
  std::ostringstream lines;
  lines.imbue(std::locale::classic());
  lines << std::fixed;
  lines.precision(0);
  for (const auto& [refused, since] : refusedSince_) lines << refused << ' ' << since << '\n';
  // A failure costs no more than another attempt after the next start.
  ports_.files.replaceCached(folder_ / kFile, lines.str());
}

}  // namespace rondora

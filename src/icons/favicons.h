#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "base/weak_self.h"
#include "icons/favicon_cache.h"
#include "icons/favicon_lookup.h"
#include "model/pie_configuration.h"

namespace rondora {

/// Fetches and caches the favicons that items show. Requests only front pages, the pictures they link and
/// "/favicon.ico", never an item's own address, which may hold a secret or trigger an action. Main thread.
class Favicons {
 public:
  struct Ports {
    NetworkFetch& network;
    PictureDecoder& decoder;
    FileSystem& files;
    const Clock& clock;
    MainQueue& mainQueue;
    Log& log;
  };

  /// The ports must outlive the object.
  explicit Favicons(const Ports& ports);

  /// Replaces the sites to serve by those of this document. Fetches missing and outdated pictures after a few seconds,
  /// a few sites at a time, and again when they are due. Does not block; uses the network only for items with a
  /// favicon.
  void prefetch(const PieConfiguration& configuration);

  /// Writes what is pending; call it at the end.
  void save() { cache_.save(); }

  /// The cached picture of a site (its origin); nothing while there is none. Does not wait for the network.
  std::optional<std::filesystem::path> picture(std::string_view site) const;

  /// Why the last picture could not be kept, as the system's message.
  const FileError& problem() const { return cache_.problem(); }

  /// Called after a picture was written; may be empty.
  std::function<void()> onPicture;
  /// While it returns true the index of the cache is not written; may be empty.
  std::function<bool()> isRingOpen;

 private:
  struct Target {
    WebAddress site;
    std::filesystem::path file;
  };

  std::optional<Target> targetOf(const PieMenuItem& item) const;
  void wakeAfter(double seconds);
  void work();
  void startDue();
  double secondsUntilNext();
  void start(const Target& target);
  void saveSoon();
  void finished(const std::filesystem::path& file, const FaviconResult& result);

  Ports ports_;
  FaviconCache cache_;
  std::vector<Target> targets_;
  /// The targets that were due when the timer fired, the next one last.
  std::vector<const Target*> due_;
  std::map<std::filesystem::path, std::unique_ptr<FaviconLookup>> lookups_;  // by the file they write
  Subscription wake_;
  Subscription save_;
  WeakSelf<Favicons> weakSelf_{this};
};

}  // namespace rondora

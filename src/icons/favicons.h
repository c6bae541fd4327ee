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

/// The pictures of the web sites that items show. Only the front page and the pictures it names are ever asked for,
/// never an item's own address, which may hold secrets or do something when it is called. Main thread.
class Favicons {
 public:
  struct Ports {
    NetworkFetch& network;
    PictureCodec& codec;
    FileSystem& files;
    const Clock& clock;
    MainQueue& mainQueue;
  };

  /// All ports outlive this.
  explicit Favicons(const Ports& ports);

  /// Takes the items of this document, and no others, for those to be served: what is missing or out of date is fetched
  /// from a few seconds later on, a few sites at a time, and again whenever it is due. Returns at once; nothing goes to
  /// the network when no item asks for a favicon.
  void prefetch(const PieConfiguration& configuration);

  /// The file with the picture of a site (its origin); nothing while there is none. Never waits for the network.
  std::optional<std::filesystem::path> picture(std::string_view site) const;

  /// A picture that was missing or out of date has been written; may be empty.
  std::function<void()> onPicture;

 private:
  struct Wish {
    WebAddress site;
    std::filesystem::path file;
  };

  std::optional<Wish> wishOf(const PieMenuItem& item) const;
  void wakeAfter(double seconds);
  void work();
  void start(const Wish& wish);
  void finished(const std::filesystem::path& file, const FaviconResult& result);

  Ports ports_;
  FaviconCache cache_;
  std::vector<Wish> wishes_;
  std::map<std::filesystem::path, std::unique_ptr<FaviconLookup>> lookups_;  // by the file they are for
  Subscription wake_;
  WeakSelf<Favicons> weakSelf_{this};
};

}  // namespace rondora

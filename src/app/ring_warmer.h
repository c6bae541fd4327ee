#pragma once

#include <cstddef>
#include <vector>

#include "app/item_titles.h"
#include "base/observable.h"
#include "base/weak_self.h"
#include "model/pie_menu.h"
#include "platform/main_queue.h"
#include "platform/picture_rasterizer.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_menu_items.h"
#include "storage/config_manager.h"

namespace rondora {

/// Prepares the ring of every menu once in a quiet moment and throws it away, so that icons and letters are ready when
/// the user opens it: after the start, after a change of the document, and when told. The rings that running
/// applications fill are prepared after another one came to the front, too. Main thread.
class RingWarmer {
 public:
  struct Services {
    ConfigManager& config;
    RunningAppsMenuItems& runningAppsMenuItems;
    const ItemTitles& titles;
    Workspace& workspace;
    PictureRasterizer& rasterizer;
    MainQueue& mainQueue;
    /// Of the screens that rings open on.
    double pixelsPerPoint = 1;
  };

  /// All services outlive this.
  explicit RingWarmer(const Services& services);

  /// Starts over when the next quiet moment comes.
  void warm();

 private:
  void begin();
  void waitForQuiet();
  void warmNext();
  void prepare(const PieMenu& menu) const;

  Services services_;
  bool isDocumentDue_ = false;
  std::vector<PieMenu> waiting_;  // the next one last
  Subscription next_;
  Subscription configuration_;
  Subscription activations_;
  WeakSelf<RingWarmer> weakSelf_{this};
};

}  // namespace rondora

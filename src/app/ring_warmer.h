#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "model/pie_menu.h"
#include "platform/main_queue.h"
#include "platform/workspace.h"
#include "storage/config_manager.h"

namespace rondora {

/// Has the ring of every enabled menu prepared once in a quiet moment, one a turn of the main queue, so that the first
/// opening costs what the later ones cost: after the start, after a change of the document, and when told. The rings
/// that running applications fill are prepared after another one came to the front, too. Main thread.
class RingWarmer {
 public:
  struct Services {
    ConfigManager& config;
    Workspace& workspace;
    MainQueue& mainQueue;
    /// Makes everything that showing the menu will need.
    std::function<void(const PieMenu&)> prepare;
    /// Somebody would have to wait for a preparation now.
    std::function<bool()> isRingOpen;
  };

  /// All services outlive this, whose end cancels what is still to be done.
  explicit RingWarmer(const Services& services);

  /// Starts over when the next quiet moment comes.
  void warm();

 private:
  void begin();
  void waitForQuiet();
  void takeTurnIn(double seconds);
  void takeTurn();

  Services services_;
  /// The document's rings have not all been prepared since it changed.
  bool isDocumentDue_ = false;
  /// The next one last, so that the first menus are prepared last, and those that a key opens after all others: who
  /// keeps few keeps those.
  std::vector<PieMenu> waiting_;
  Subscription next_;
  Subscription configuration_;
  Subscription activations_;
  WeakSelf<RingWarmer> weakSelf_{this};
};

}  // namespace rondora

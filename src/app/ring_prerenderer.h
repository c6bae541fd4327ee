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

/// Pre-renders the ring of every enabled menu while the program is idle, one per turn of the main queue, so that a
/// first opening is as fast as later ones: after the start, after a change of the document, and on request. The
/// rings of running applications and of commands are also pre-rendered when another application becomes active. A
/// document of any size takes limited time: menus with a hotkey come first, and what exceeds the budget is left out.
/// Main thread.
class RingPrerenderer {
 public:
  struct Services {
    const ConfigManager& config;
    Workspace& workspace;
    MainQueue& mainQueue;
    /// Pre-renders one menu.
    std::function<void(const PieMenu&)> prerender;
    /// True while a ring is open: pre-rendering pauses.
    std::function<bool()> isRingOpen;
  };

  /// The services must outlive the object; destroying it cancels pending work.
  explicit RingPrerenderer(const Services& services);

  /// Starts over soon: icons arrive in short bursts, the first ones right after the start.
  void iconsChanged();
  /// The commands of an application became known or changed.
  void commandsKnown();

 private:
  void prerenderAll();
  void begin();
  void waitForQuiet(double seconds);
  void takeTurnIn(double seconds);
  void takeTurn();

  Services services_;
  /// Some rings of the current document are not pre-rendered yet.
  bool isDocumentDue_ = false;
  /// Taken from the back, so that menus with a hotkey are rendered last and an LRU cache keeps them.
  std::vector<PieMenu> waiting_;
  Subscription next_;
  Subscription configuration_;
  Subscription activations_;
  WeakSelf<RingPrerenderer> weakSelf_{this};
};

}  // namespace rondora

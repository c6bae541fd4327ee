#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "base/display_list.h"
#include "base/geometry.h"
#include "base/observable.h"
#include "pie/controller/menu_preview_view.h"
#include "pie/geometry/ring_layout.h"
#include "platform/haptics.h"

namespace rondora {

/// The ring of a menu as the settings show and edit it: sectors are chosen and dragged to another place, and the rim
/// turns the ring. Points are those of the picture. Main thread.
class RingPreview {
 public:
  /// A ring as it would open.
  struct Ring {
    Picture picture;
    RingLayout layout;
    std::size_t itemCount = 0;
  };

  /// How the ring is made and what edits do. Each function may be empty: the ring is then not edited so.
  struct Services {
    Haptics& haptics;
    std::function<bool()> hapticFeedbackEnabled;
    /// Sectors can be chosen and moved now.
    std::function<bool()> editsSectors;
    /// `order` tells where each item of the ring comes from; empty for the ring as it is.
    std::function<Ring(const std::vector<std::size_t>& order)> ring;
    std::function<std::optional<std::size_t>()> chosen;
    std::function<void(std::optional<std::size_t>)> choose;
    std::function<void(std::size_t from, std::size_t to)> move;
    std::function<void(double rotationDegrees)> turn;
  };

  enum class Cursor { arrow, choose, drag, turn };

  explicit RingPreview(Services services);

  /// The document or what the ring shows has changed.
  void refresh();
  const Ring& ring() const { return ring_; }
  bool editsSectors() const { return !services_.editsSectors || services_.editsSectors(); }
  /// One state for each layer of the picture.
  std::vector<double> states() const;
  /// The observer is called when the picture or a state changed.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

  void press(Point point);
  void moveTo(Point point);
  void release();
  /// The pointer left; a drag goes on.
  void leave();
  /// Ends a drag without an effect; false when there is none.
  bool cancel();
  Cursor cursor() const;

  /// Chooses the next sector clockwise, or counter-clockwise.
  void step(int sectors);
  /// Moves the chosen item that many places.
  void moveChosen(int places);
  /// Turns the ring by that many steps of half a sector.
  void turnBy(int steps);

 private:
  enum class Drag { none, pressed, item, wheel };

  Point offset(Point point) const { return point - ring_.layout.center(); }
  std::optional<std::size_t> sectorAt(Point point) const;
  bool isOnRim(Point point) const;
  void dragItem(Point point);
  void turnTo(double rotationDegrees);
  void show(const std::vector<std::size_t>& order);
  void setHovered(std::optional<std::size_t> sector);
  std::optional<std::size_t> highlighted() const;

  Services services_;
  Ring ring_;
  Drag drag_ = Drag::none;
  Point pressedAt_;
  Point pointer_;
  std::size_t dragged_ = 0;
  /// Where the dragged item is now.
  std::size_t draggedTo_ = 0;
  std::optional<WheelTurn> wheel_;
  /// The rotation to which the end of a wheel's drag without an effect goes back.
  double turnedFrom_ = 0;  // degrees
  std::optional<std::size_t> hovered_;
  Signal<> changed_;
};

}  // namespace rondora

#include "platform/linux/evdev/contact_decoder.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

namespace rondora::desktop {
namespace {

/// In the order of their number of fingers, from one.
constexpr unsigned kFingerTools[] = {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP,
                                     BTN_TOOL_QUINTTAP};

// Two places where no finger is, far from each other and from the surface.
constexpr float kLeftTo = -1;
constexpr float kCameFrom = -3;

/// Identifiers of fingers that have no tracking id, which is never negative.
constexpr std::int32_t identifierWithoutSlot(int finger) { return -1 - finger; }

template <class T>
void put(ContactDecoder::Record& record, std::size_t offset, T value) {
  std::memcpy(record.data() + offset, &value, sizeof value);
}

std::size_t slotCountOf(const libevdev& device) {
  return static_cast<std::size_t>(std::max(libevdev_get_num_slots(&device), 0));
}

}  // namespace

ContactDecoder::ContactDecoder(const libevdev& device)
    : device_(device),
      hasOnlyABox_(libevdev_has_property(&device, INPUT_PROP_SEMI_MT) != 0 || slotCountOf(device) == 0),
      slots_(slotCountOf(device)) {
  records_.reserve(2 * slots_.size() + std::size(kFingerTools) + 1);  // a slot may end one contact and begin another
  if (hasOnlyABox_) {
    countedFingers_ = fingersByTool();
    countsFromBefore_ = countedFingers_ > 0;
    reported_ = middle().value_or(Place{});
  } else {
    for (unsigned slot = 0; slot < slots_.size(); ++slot) takeOverSlot(slot);
  }
}

void ContactDecoder::takeOverSlot(unsigned slot) {
  const int trackingId = libevdev_get_slot_value(&device_, slot, ABS_MT_TRACKING_ID);
  if (trackingId < 0) return;
  const bool isFinger = stateOf(slot) == contact_record::touching;
  slots_[slot] = {.trackingId = trackingId, .isFinger = isFinger, .isFromBefore = isFinger, .place = placeOf(slot)};
}

std::span<const ContactDecoder::Record> ContactDecoder::decodeFrame() {
  records_.clear();
  const int fingers = fingersByTool();
  if (hasOnlyABox_) {
    decodeByTool(fingers);
  } else {
    for (unsigned slot = 0; slot < slots_.size(); ++slot) decodeSlot(slot);
    decodeFingersWithoutSlot(fingers);
  }
  return records_;
}

void ContactDecoder::decodeSlot(unsigned slot) {
  Contact& last = slots_[slot];
  const int trackingId = libevdev_get_slot_value(&device_, slot, ABS_MT_TRACKING_ID);
  const bool isNew = trackingId != last.trackingId;
  if (isNew && last.trackingId >= 0) add(last.trackingId, contact_record::outOfRange, last.place);
  if (trackingId < 0) {
    last = {};
    return;
  }
  contact_record::State state = stateOf(slot);
  Place place = placeOf(slot);
  const bool isFinger = state == contact_record::touching;
  if (isFinger && isNew) state = contact_record::making;
  // A finger that turns out to be a palm has not been lifted: it leaves the surface once, so its gesture is no tap.
  if (!isNew && last.isFinger && state == contact_record::lingering) {
    state = contact_record::touching;
    place = {kLeftTo, kLeftTo};
  }
  if (!isNew && last.isFromBefore) add(trackingId, contact_record::touching, {kCameFrom, kCameFrom});
  last = {.trackingId = trackingId, .isFinger = isFinger, .place = place};
  add(trackingId, state, place);
}

/// More fingers than slots: the tool bits count them, but nothing tells where they are.
void ContactDecoder::decodeFingersWithoutSlot(int fingers) {
  if (fingers <= static_cast<int>(slots_.size())) return;
  const auto placed = std::ranges::count_if(slots_, [](const Contact& contact) { return contact.trackingId >= 0; });
  for (int finger = 0; finger < fingers - static_cast<int>(placed); ++finger) {
    add(identifierWithoutSlot(finger), contact_record::touching, {0.5F, 0.5F});
  }
}

void ContactDecoder::decodeByTool(int fingers) {
  const auto now = middle();
  if (now && fingers > 0) {
    if (countedFingers_ == 0) reported_ = *now;
    if (fingers != countedFingers_) shift_ = {reported_.x - now->x, reported_.y - now->y};
    reported_ = {now->x + shift_.x, now->y + shift_.y};
  }
  if (std::exchange(countsFromBefore_, false) && fingers > 0) {
    add(identifierWithoutSlot(0), contact_record::touching, {kCameFrom, kCameFrom});
  }
  for (int finger = 0; finger < std::max(fingers, countedFingers_); ++finger) {
    const auto state = finger >= fingers           ? contact_record::outOfRange
                       : finger >= countedFingers_ ? contact_record::making
                                                   : contact_record::touching;
    add(identifierWithoutSlot(finger), state, reported_);
  }
  countedFingers_ = fingers;
}

/// The middle of the slots in use, or the single position.
std::optional<ContactDecoder::Place> ContactDecoder::middle() const {
  if (slots_.empty()) return Place{normalized(ABS_X, axis(ABS_X)), normalized(ABS_Y, axis(ABS_Y))};
  Place sum;
  float used = 0;
  for (unsigned slot = 0; slot < slots_.size(); ++slot) {
    if (libevdev_get_slot_value(&device_, slot, ABS_MT_TRACKING_ID) < 0) continue;
    const Place place = placeOf(slot);
    sum = {sum.x + place.x, sum.y + place.y};
    used += 1;
  }
  if (used == 0) return std::nullopt;
  return Place{sum.x / used, sum.y / used};
}

contact_record::State ContactDecoder::stateOf(unsigned slot) const {
  // 0 without such an axis: MT_TOOL_FINGER, and on the surface.
  if (libevdev_get_slot_value(&device_, slot, ABS_MT_TOOL_TYPE) != MT_TOOL_FINGER) return contact_record::lingering;
  if (libevdev_get_slot_value(&device_, slot, ABS_MT_DISTANCE) > 0) return contact_record::hovering;
  return contact_record::touching;
}

int ContactDecoder::fingersByTool() const {
  if (libevdev_has_event_code(&device_, EV_KEY, BTN_TOUCH) != 0 &&
      libevdev_get_event_value(&device_, EV_KEY, BTN_TOUCH) == 0) {
    return 0;
  }
  for (int fingers = static_cast<int>(std::size(kFingerTools)); fingers > 0; --fingers) {
    if (libevdev_get_event_value(&device_, EV_KEY, kFingerTools[fingers - 1]) != 0) return fingers;
  }
  return 0;
}

int ContactDecoder::axis(unsigned code) const { return libevdev_get_event_value(&device_, EV_ABS, code); }

ContactDecoder::Place ContactDecoder::placeOf(unsigned slot) const {
  const auto coordinate = [&](unsigned code) {
    return normalized(code, libevdev_get_slot_value(&device_, slot, code));
  };
  return {coordinate(ABS_MT_POSITION_X), coordinate(ABS_MT_POSITION_Y)};
}

float ContactDecoder::normalized(unsigned axis, int value) const {
  const int minimum = libevdev_get_abs_minimum(&device_, axis);
  const int maximum = libevdev_get_abs_maximum(&device_, axis);
  if (maximum <= minimum) return 0;
  return (static_cast<float>(value) - static_cast<float>(minimum)) /
         (static_cast<float>(maximum) - static_cast<float>(minimum));
}

void ContactDecoder::add(std::int32_t identifier, contact_record::State state, Place place) {
  Record& record = records_.emplace_back();
  put(record, contact_record::kIdentifierOffset, identifier);
  put(record, contact_record::kStateOffset, static_cast<std::int32_t>(state));
  put(record, contact_record::kXOffset, place.x);
  put(record, contact_record::kYOffset, place.y);
}

}  // namespace rondora::desktop

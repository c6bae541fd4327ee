#pragma once

#include <libevdev/libevdev.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/multitouch.h"

namespace rondora::desktop {

/// Turns the state of a trackpad into contact records. A trackpad with a slot for each finger (multitouch protocol B)
/// yields a record for each tracking id. Others, which report fewer positions than fingers, are counted by their tool
/// bits. A gesture with a finger that was down before the decoder was made has moved, so it is no tap. One thread.
class ContactDecoder {
 public:
  using Record = std::array<std::byte, contact_record::kSize>;

  /// `device` must outlive the object.
  explicit ContactDecoder(const libevdev& device);

  /// The records of the frame that the device has just completed; valid until the next call. Allocates nothing.
  std::span<const Record> decodeFrame();

 private:
  struct Place {
    float x = 0;
    float y = 0;
  };
  struct Contact {
    int trackingId = -1;
    bool isFinger = false;
    bool isFromBefore = false;
    Place place;
  };

  int axis(unsigned code) const;
  float normalized(unsigned axis, int value) const;
  Place placeOf(unsigned slot) const;
  contact_record::State stateOf(unsigned slot) const;
  int fingersByTool() const;
  void takeOverSlot(unsigned slot);
  void decodeSlot(unsigned slot);
  void decodeFingersWithoutSlot(int fingers);
  void decodeByTool(int fingers);
  std::optional<Place> middle() const;
  void add(std::int32_t identifier, contact_record::State state, Place place);

  const libevdev& device_;
  /// Positions of such a trackpad are the corners of a box around the fingers, or a single one.
  const bool hasOnlyABox_;
  std::vector<Contact> slots_;
  std::vector<Record> records_;
  /// Of a trackpad that has only a box: the number of fingers, where all of them are reported, and how far that is from
  /// the middle of the box, which jumps when the number changes.
  int countedFingers_ = 0;
  bool countsFromBefore_ = false;
  Place reported_;
  Place shift_;
};

}  // namespace rondora::desktop

#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace rondora::macos {

/// One owned reference of a Core Foundation object, or none.
template <class Ref>
class CFRef {
 public:
  CFRef() = default;
  /// Takes over the reference that a function with Create or Copy in its name returns; null is none.
  static CFRef adopt(Ref object) {
    CFRef owner;
    owner.object_ = object;
    return owner;
  }
  /// Adds a reference to an object that another owns; null is none.
  static CFRef share(Ref object) {
    if (object != nullptr) CFRetain(object);
    return adopt(object);
  }
  CFRef(const CFRef& other) : CFRef(share(other.object_)) {}
  CFRef(CFRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  CFRef& operator=(CFRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~CFRef() {
    if (object_ != nullptr) CFRelease(object_);
  }

  Ref get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Ref object_ = nullptr;
};

}  // namespace rondora::macos

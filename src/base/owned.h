#pragma once

#include <memory>

namespace rondora {

/// Owns a handle of a C library and releases it with the given function: UniqueCPtr<char, std::free>.
template <auto release>
struct ReleaseWith {
  template <class T>
  void operator()(T* handle) const {
    release(handle);
  }
};

template <class T, auto release>
using UniqueCPtr = std::unique_ptr<T, ReleaseWith<release>>;

}  // namespace rondora

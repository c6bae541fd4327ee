#pragma once

#include <memory>

namespace rondora {

/// Owns a handle of a C library and releases it with the given function: UniqueCPtr<char, std::free>.
template <auto Release>
struct ReleaseWith {
  template <class T>
  void operator()(T* handle) const {
    Release(handle);
  }
};

template <class T, auto Release>
using UniqueCPtr = std::unique_ptr<T, ReleaseWith<Release>>;

}  // namespace rondora

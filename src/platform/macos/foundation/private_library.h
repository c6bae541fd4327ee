#pragma once

namespace rondora::macos {

/// A library that the system has but does not promise, opened while the program runs. It stays open.
class PrivateLibrary {
 public:
  explicit PrivateLibrary(const char* path);

  /// The function of this name; null when the library or the function is missing.
  template <class Function>
  Function function(const char* name) const {
    return reinterpret_cast<Function>(symbol(name));
  }

 private:
  void* symbol(const char* name) const;

  void* handle_;
};

}  // namespace rondora::macos

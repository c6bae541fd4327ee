#pragma once

#include <memory>
#include <utility>

namespace rondora {

/// Makes callbacks that hold their object weakly. Declare it as the last member and wrap each callback in bind(). After
/// the object's destruction the callback does nothing and returns a default value. Callbacks may be copied and
/// destroyed on any thread, and are called on the main thread.
template <class T>
class WeakSelf {
 public:
  explicit WeakSelf(T* self) : self_(std::make_shared<T*>(self)) {}
  WeakSelf(const WeakSelf&) = delete;
  WeakSelf& operator=(const WeakSelf&) = delete;
  // A callback that runs meanwhile still holds the pointer.
  ~WeakSelf() { *self_ = nullptr; }

  /// `function` is called as function(T&, arguments...).
  template <class Function>
  auto bind(Function function) const {
    return [weak = std::weak_ptr<T*>(self_), function = std::move(function)](auto&&... args) {
      using Result = decltype(function(**weak.lock(), std::forward<decltype(args)>(args)...));
      if (const auto self = weak.lock(); self && *self != nullptr)
        return function(**self, std::forward<decltype(args)>(args)...);
      return Result();
    };
  }

 private:
  std::shared_ptr<T*> self_;
};

}  // namespace rondora

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "platform/application_directory.h"
#include "platform/linux/application_catalogue.h"

typedef struct _GDesktopAppInfo GDesktopAppInfo;

namespace rondora::desktop {

/// The desktop entries of the installed applications, by id (without ".desktop"). They are read on first use and again
/// after a change, which GLib reports through its default main context. Main thread.
class DesktopEntries {
 public:
  DesktopEntries();
  ~DesktopEntries();
  DesktopEntries(const DesktopEntries&) = delete;
  DesktopEntries& operator=(const DesktopEntries&) = delete;

  /// Reads the entries now (some tens of milliseconds), so that later look-ups do not wait.
  void warmUp() const;

  /// Changes with the entries and with the file-type associations.
  unsigned version() const { return version_; }
  /// Reports such changes. GLib also reports changes directly in ~/.config, and is then silent until the entries are
  /// read again.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

  /// Those that the desktop's own menu would show.
  std::vector<StartableApplication> startable() const;

  bool contains(std::string_view id) const { return find(id) != nullptr; }
  /// Valid until the entries are read again; null when there is none.
  GDesktopAppInfo* find(std::string_view id) const;

  /// Matches, in this order: the window's application id, StartupWMClass, the window class as id, the class as last
  /// component of a reversed domain, the executable.
  std::optional<std::string> idOfWindow(const WindowIdentity& window) const;
  /// The application whose executable has that name.
  std::optional<std::string> idOfExecutable(std::string_view name) const;
  /// Single tasks of a larger application have arguments in their command, such as "files --preferences".
  enum class Tasks { included, excluded };
  /// The first visible application, by id, that is in all of the categories.
  std::optional<std::string> firstInCategories(std::span<const std::string_view> categories,
                                               Tasks tasks = Tasks::included) const;

 private:
  struct Index;
  struct Monitor;

  const Index& index() const;
  void forget();

  mutable std::unique_ptr<Index> index_;
  unsigned version_ = 0;
  Signal<> changed_;
  std::unique_ptr<Monitor> monitor_;
};

}  // namespace rondora::desktop

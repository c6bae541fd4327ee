#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/application_catalogue.h"

typedef struct _GDesktopAppInfo GDesktopAppInfo;

namespace rondora::desktop {

/// The desktop entries of the installed applications, by id (without ".desktop"). They are read when first needed and
/// again after they changed; the change is noticed through GLib's default main context. Main thread.
class DesktopEntries {
 public:
  DesktopEntries();
  ~DesktopEntries();
  DesktopEntries(const DesktopEntries&) = delete;
  DesktopEntries& operator=(const DesktopEntries&) = delete;

  /// Reads the entries now (some tens of milliseconds), so that no later question has to.
  void warm() const;

  /// Another one after the entries, or what opens which kind of file, changed.
  unsigned version() const { return version_; }
  /// Called after such a change; may be empty. GLib takes any change right in ~/.config for one, and is silent from
  /// then on until somebody asks for entries.
  std::function<void()> onChanged;

  bool contains(std::string_view id) const { return find(id) != nullptr; }
  /// Valid until the entries are read again; null when there is none.
  GDesktopAppInfo* find(std::string_view id) const;

  /// In this order: the id that the window announces, StartupWMClass, the window class as id, as last component of a
  /// reversed domain, the program file.
  std::optional<std::string> idOfWindow(const WindowIdentity& window) const;
  /// The application that is started by a program of that name.
  std::optional<std::string> idOfExecutable(std::string_view name) const;
  /// The first application for the user, by id, that lies in every one of the categories.
  std::optional<std::string> firstInCategories(std::span<const std::string_view> categories) const;

 private:
  struct Index;
  struct Monitor;

  const Index& index() const;
  void forget();

  mutable std::unique_ptr<Index> index_;
  unsigned version_ = 0;
  std::unique_ptr<Monitor> monitor_;
};

}  // namespace rondora::desktop

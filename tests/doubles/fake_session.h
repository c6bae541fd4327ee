#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "doubles/value_at.h"
#include "platform/application_shell.h"
#include "platform/instance_channel.h"
#include "platform/login_item.h"
#include "platform/permission_service.h"
#include "platform/process_environment.h"
#include "platform/session_events.h"

// The program's session: its shell, permissions and environment.

namespace rondora {

class FakeApplicationShell final : public ApplicationShell {
 public:
  void setActivationPolicy(ActivationPolicy policy) override { activationPolicy = policy; }
  void setMainMenu(std::vector<MenuEntry> entries) override { mainMenu = std::move(entries); }
  void activateIgnoringOtherApps() override { ++activations; }
  void terminate() override { ++terminations; }
  void openOwnApplication(const OpenConfiguration& configuration, std::function<void()> opened) override {
    openedWith = configuration;
    openingInstance = std::move(opened);
  }
  void setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) override {
    shouldTerminateAfterLastWindowClosed = std::move(shouldTerminate);
  }
  [[nodiscard]] Subscription onDidBecomeActive(std::function<void()> observer) override {
    return becameActive_.subscribe(std::move(observer));
  }
  void becomeActive() const { becameActive_.send(); }

  ActivationPolicy activationPolicy = ActivationPolicy::regular;
  std::vector<MenuEntry> mainMenu;
  int activations = 0;
  int terminations = 0;
  /// Set while a new instance is being opened; the test calls it when the instance is open.
  std::function<void()> openingInstance;
  OpenConfiguration openedWith;
  std::function<bool()> shouldTerminateAfterLastWindowClosed;

 private:
  Signal<> becameActive_;
};

class FakeSessionEvents final : public SessionEvents {
 public:
  [[nodiscard]] Subscription onLockOrSleep(std::function<void()> observer) override {
    return lockOrSleep_.subscribe(std::move(observer));
  }
  [[nodiscard]] Subscription onDidWake(std::function<void()> observer) override {
    return didWake_.subscribe(std::move(observer));
  }
  void lock() const { lockOrSleep_.send(); }
  void wake() const { didWake_.send(); }

 private:
  Signal<> lockOrSleep_;
  Signal<> didWake_;
};

class FakePermissionService final : public PermissionService {
 public:
  bool asksUser() const override { return hasPages; }
  bool isProcessTrusted() const override { return trusted; }
  bool preflightListenEventAccess() const override { return mayListen; }
  void promptForTrust() override { ++trustPrompts; }
  void requestListenEventAccess() override { ++listenRequests; }
  [[nodiscard]] std::optional<Subscription> onMayHaveChanged(std::function<void()> observer) override {
    if (!tellsOfChanges) return std::nullopt;
    return mayHaveChanged.subscribe(std::move(observer));
  }

  bool hasPages = true;
  bool trusted = true;
  bool mayListen = true;
  bool tellsOfChanges = false;
  int trustPrompts = 0;
  int listenRequests = 0;
  Signal<> mayHaveChanged;
};

class FakeLoginItem final : public LoginItem {
 public:
  LoginItemError add() override { return change(true); }
  LoginItemError remove() override { return change(false); }
  bool isListed() const override { return listed; }

  bool listed = false;
  /// Of each change; empty when they succeed.
  LoginItemError error;

 private:
  LoginItemError change(bool lists) {
    if (!error) listed = lists;
    return error;
  }
};

class FakeProcessEnvironment final : public ProcessEnvironment {
 public:
  std::optional<std::string> variable(std::string_view name) const override { return valueAt(variables, name); }
  std::string bundleIdentifier() const override { return identifier; }

  std::map<std::string, std::string, std::less<>> variables;
  std::string identifier = "org.example.Rondora";
};

class FakeInstanceChannel final : public InstanceChannel {
 public:
  Claim claim() override {
    const Claim answer = claims.front();
    if (claims.size() > 1) claims.erase(claims.begin());
    isHeld = answer == Claim::first;
    return answer;
  }
  void release() override { isHeld = false; }
  bool askForSettings() override {
    ++asked;
    return answers;
  }
  void serve(SessionRequests requests) override { served = std::move(requests); }

  /// The results of the next claims; the last one stays.
  std::vector<Claim> claims{Claim::first};
  bool answers = true;
  bool isHeld = false;
  int asked = 0;
  SessionRequests served;
};

}  // namespace rondora

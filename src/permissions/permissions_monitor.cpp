#include "permissions/permissions_monitor.h"

namespace rondora {
namespace {

constexpr double kToleranceShare = 0.2;

}  // namespace

PermissionsMonitor::PermissionsMonitor(PermissionService& permissions, MainQueue& mainQueue, ApplicationShell& shell)
    : permissions_(permissions), mainQueue_(mainQueue), snapshot_(PermissionsSnapshot::read(permissions)) {
  activationObserver_ = shell.onDidBecomeActive(weakSelf_.bind([](PermissionsMonitor& self) { self.refresh(); }));
  news_ = permissions.onMayHaveChanged(weakSelf_.bind([](PermissionsMonitor& self) { self.refreshOnceSettled(); }));
  scheduleTimer();
}

void PermissionsMonitor::refreshOnceSettled() {
  settling_ = mainQueue_.workItem(kSettleTime, weakSelf_.bind([](PermissionsMonitor& self) { self.refresh(); }));
}

void PermissionsMonitor::refresh() {
  const auto current = PermissionsSnapshot::read(permissions_);
  if (current != snapshot_.value()) snapshot_.send(current);
  scheduleTimer();
}

void PermissionsMonitor::scheduleTimer() {
  timer_.reset();
  if (news_) return;
  const double interval = snapshot_.value().allGranted() ? kGrantedInterval : kPendingInterval;
  timer_ = mainQueue_.timer(interval, kToleranceShare * interval,
                            weakSelf_.bind([](PermissionsMonitor& self) { self.refresh(); }));
}

}  // namespace rondora

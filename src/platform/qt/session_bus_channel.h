#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QThreadPool>
#include <QTimer>
#include <functional>
#include <string>

#include "platform/instance_channel.h"

namespace rondora {

/// The program's name on the session bus and the object behind it. Connects again after the bus was restarted. Waits
/// for the bus for two seconds at most. Main thread.
class SessionBusChannel final : public QDBusVirtualObject, public InstanceChannel {
 public:
  /// `name` is the bus name to own and also the name of the interface; the object's path has the same parts.
  /// `doesBusAnswer` says, on another thread, whether the bus would answer; it may block.
  SessionBusChannel(QDBusConnection bus, const std::string& name, std::function<bool()> doesBusAnswer);
  ~SessionBusChannel() override;

  Claim claim() override;
  void release() override;
  bool askForSettings() override;
  void serve(SessionRequests requests) override;

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  QDBusMessage answerTo(const QDBusMessage& call) const;
  QDBusMessage answerToTrigger(const QDBusMessage& call) const;

  void watchConnection();
  void askWhetherBusAnswers();
  void connectAgain(bool isThere);

  QDBusConnection bus_;
  QString name_;
  QString path_;
  SessionRequests requests_;
  std::function<bool()> doesBusAnswer_;
  int connections_ = 0;
  /// Runs while the connection is lost.
  QTimer retry_;
  /// A pool of its own: what blocks here must not delay painting.
  QThreadPool probes_;
};

}  // namespace rondora

// Notices of devices as Windows gives them.
#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>

#include "adapters/qt/serial/queued_news.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Tells when devices have come or gone. Windows says so to every window, so a program without windows
/// hears nothing. Needs an application object.
class DeviceNotices : public DeviceWatch, public QAbstractNativeEventFilter {
 public:
  DeviceNotices(Scheduler& scheduler, std::function<void()> told);

  bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

 private:
  QueuedNews news_;
};

}  // namespace kavr6

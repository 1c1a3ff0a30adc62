#include "adapters/qt/serial/device_notices.h"

#include <QCoreApplication>
#include <utility>

#include <windows.h>
// Needs the one above.
#include <dbt.h>

namespace kavr6 {

DeviceNotices::DeviceNotices(Scheduler& scheduler, std::function<void()> told)
    : news_(scheduler, std::move(told)) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool DeviceNotices::nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/) {
  const MSG& notice = *static_cast<const MSG*>(message);
  const bool news = notice.wParam == DBT_DEVNODES_CHANGED || notice.wParam == DBT_DEVICEARRIVAL ||
                    notice.wParam == DBT_DEVICEREMOVECOMPLETE;
  if (notice.message == WM_DEVICECHANGE && news) news_.Tell();
  return false;  // the window shall have it, too
}

}  // namespace kavr6

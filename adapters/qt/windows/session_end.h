// The end of the user's session at the computer.
#pragma once

#include <QObject>

#include "platform/desktop.h"

class QSessionManager;

namespace kavr6 {

/// When the user logs off or shuts the computer down the system asks whether the session may end: this puts
/// it to Desktop::MaySessionEnd and keeps the session when it may not. What the system orders then ends the
/// program without a further question; on Windows that is heard by EndSignals. Needs a QApplication.
class SessionEnd : public QObject {
 public:
  explicit SessionEnd(Desktop& desktop);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Asked(QSessionManager& manager);

  Desktop& desktop_;
};

}  // namespace kavr6

// Ports and notices of devices as Windows has them.
#include <QAbstractEventDispatcher>

#include <gtest/gtest.h>
#include <windows.h>
// Needs the one above.
#include <dbt.h>

#include "adapters/qt/base/end_signals.h"
#include "adapters/qt/base/qt_event_pump.h"
#include "adapters/qt/serial/device_notices.h"
#include "adapters/qt/serial/port_names.h"

namespace kavr6 {
namespace {

/// As the toolkit hands on what is sent to a window.
void Send(UINT message, WPARAM what) {
  MSG notice{};
  notice.message = message;
  notice.wParam = what;
  qintptr result = 0;
  QAbstractEventDispatcher::instance()->filterNativeEvent("windows_generic_MSG", &notice, &result);
}

TEST(DeviceNotices, SeveralAtOnceAreToldOnceAndNothingElseIs) {
  QtEventPump pump;
  int told = 0;
  {
    const DeviceNotices notices(pump, [&told] { ++told; });
    Send(WM_DEVICECHANGE, DBT_DEVICEARRIVAL);
    Send(WM_DEVICECHANGE, DBT_DEVNODES_CHANGED);
    EXPECT_EQ(told, 0) << "not from inside the notice";
    pump.PumpEvents();
    EXPECT_EQ(told, 1);
    Send(WM_DEVICECHANGE, DBT_QUERYCHANGECONFIG);
    Send(WM_SETTINGCHANGE, DBT_DEVNODES_CHANGED);
    pump.PumpEvents();
    EXPECT_EQ(told, 1);
    Send(WM_DEVICECHANGE, DBT_DEVICEREMOVECOMPLETE);
    pump.PumpEvents();
    EXPECT_EQ(told, 2);
    Send(WM_DEVICECHANGE, DBT_DEVNODES_CHANGED);
  }
  Send(WM_DEVICECHANGE, DBT_DEVNODES_CHANGED);
  pump.PumpEvents();
  EXPECT_EQ(told, 2) << "after its end";
}

TEST(EndSignals, SessionThatEndsIsToldAndOneThatGoesOnIsNot) {
  std::string log;
  const EndSignals endSignals([&log](int) { log += "end "; });
  Send(WM_ENDSESSION, FALSE);
  log += "session ";
  Send(WM_ENDSESSION, TRUE);
  EXPECT_EQ(log, "session end ");
}

TEST(PortNames, PortIsFoundWhenItComesAndGoneWhenItGoes) {
  const PortNames names({"ports"});
  ASSERT_EQ(names.Device(8), "");
  ASSERT_TRUE(DefineDosDeviceW(DDD_RAW_TARGET_PATH, L"COM8", L"\\Device\\Null"));
  EXPECT_EQ(names.Device(8), "COM8");
  EXPECT_EQ(names.Device(7), "");
  DefineDosDeviceW(DDD_RAW_TARGET_PATH | DDD_REMOVE_DEFINITION, L"COM8", nullptr);
  EXPECT_EQ(names.Device(8), "");
}

}  // namespace
}  // namespace kavr6

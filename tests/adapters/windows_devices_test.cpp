// Ports and notices of devices as Windows has them.
#include <gtest/gtest.h>
#include <windows.h>
// Needs the one above.
#include <dbt.h>

#include "adapters/qt/base/qt_event_pump.h"
#include "adapters/qt/serial/device_notices.h"
#include "adapters/qt/serial/port_names.h"

namespace kavr6 {
namespace {

TEST(DeviceNotices, SeveralAtOnceAreToldOnceAndNothingElseIs) {
  QtEventPump pump;
  int told = 0;
  const auto notice = [&pump](UINT message, WPARAM what) {
    PostThreadMessageW(GetCurrentThreadId(), message, what, 0);
    Delay(pump, 0.05);
  };
  {
    const DeviceNotices notices(pump, [&told] { ++told; });
    PostThreadMessageW(GetCurrentThreadId(), WM_DEVICECHANGE, DBT_DEVICEARRIVAL, 0);
    notice(WM_DEVICECHANGE, DBT_DEVNODES_CHANGED);
    EXPECT_EQ(told, 1);
    notice(WM_DEVICECHANGE, DBT_QUERYCHANGECONFIG);
    notice(WM_SETTINGCHANGE, DBT_DEVNODES_CHANGED);
    EXPECT_EQ(told, 1);
    notice(WM_DEVICECHANGE, DBT_DEVICEREMOVECOMPLETE);
    EXPECT_EQ(told, 2);
    PostThreadMessageW(GetCurrentThreadId(), WM_DEVICECHANGE, DBT_DEVNODES_CHANGED, 0);
  }
  Delay(pump, 0.05);
  EXPECT_EQ(told, 2) << "after its end";
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

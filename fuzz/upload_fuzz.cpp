// Any bytes as the block that a drive has sent: they become settings within their limits, which can be
// written again, or end in a RuntimeError.
#include <cmath>
#include <cstdint>

#include "fuzz/require.h"
#include "image/parameter_image.h"
#include "motor/small_catalogue.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

bool Within(Long value, Long least, Long most) { return value >= least && value <= most; }

void RequireLimits(const Settings& s) {
  Require(Within(s.IdlePercent, 0, 90) && Within(s.BitRateCode, 1, 5) && Within(s.MotionOutMode, 1, 8),
          "codes");
  for (const Long code : {s.EnableMode, s.AlarmResetMode, s.AlarmOutMode, s.BrakeMode, s.LimitMode})
    Require(Within(code, 1, 3), "codes of inputs and outputs");
  Require(!Within(s.ControlMode, 12, 18) && (s.ProtocolFlags & ~0x37) == 0, "modes");
  Require(s.NoiseFilter > 0 && s.RunCurrent > 0 && std::isfinite(s.AnalogFilter), "numbers");
  Require(!s.MotorName.empty() && s.MotorName.size() <= 13 && !s.RS485Addr.empty(), "texts");
}

void UploadAndWriteAgain(std::span<const Byte> buffer) {
  static MemoryTable table = CatalogueTable();
  table.MoveFirst();
  const MotorRow row = MotorTable(table).Row();
  Settings settings;
  const UploadedMotor uploaded = DecodeImage(buffer, settings);
  Require(buffer.size() >= 159 && Within(uploaded.ARfreq, 0, 65535) && uploaded.Motor.MotorName.size() <= 13,
          "the motor");
  RequireLimits(settings);

  ParameterImage image{};
  DownloadString(image, settings, row);
  StoreChecksum(image);
  Require(ChecksumHolds(image), "the sum");
  Settings again;
  DecodeImage(image, again);
  Require(again.Speed == settings.Speed && again.CmdScale == settings.CmdScale &&
              again.RunCurrent == settings.RunCurrent && again.MotorName == settings.MotorName,
          "what is written reads the same");
}

}  // namespace
}  // namespace kavr6

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    kavr6::UploadAndWriteAgain({data, size});
  } catch (const kavr6::RuntimeError&) {
    // The other allowed end.
  }
  return 0;
}

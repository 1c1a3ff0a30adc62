// Reads a simulated drive into a configuration file, without any window or toolkit: what the parts below the
// windows can do by themselves.
#include <cstdio>
#include <fstream>

#include "config_file/settings_file.h"
#include "core/numbers.h"
#include "image/transfers.h"
#include "link/comm_ports.h"
#include "link/receive_path.h"
#include "motor/small_catalogue.h"
#include "platform/headless/headless_desktop.h"
#include "simulator/simulated_comm.h"
#include "simulator/simulated_drive.h"

int main(int argc, char** argv) {
  using namespace kavr6;
  if (argc != 2) return 2;
  HeadlessDesktop pump;
  SimulatedDrive drive(pump.Line());
  SimulatedComm comm(pump, pump.Line());
  comm.Connect(1, &drive);

  DriveState state;
  Settings settings;
  InitVars(settings);
  const DriveLine line{state, comm, pump, pump};
  MemoryTable catalogue = CatalogueTable();
  MotorTable motors(catalogue);
  motors.Open("");
  CurrentLimits limits(settings, state, motors);
  CommPorts ports(line);
  const ReceivePath receive(line);
  DriveIdentity identity(line);
  Transfers transfers({line, settings, identity, motors, limits});
  transfers.AddMotorIfMissing = [&motors](const MotorRecord& motor) {
    if (!motor.MotorName.empty() && !motors.Seek(motor.MotorName)) motors.Append(motor);
    motors.Seek(motor.MotorName);
  };

  ports.StartComm();
  if (transfers.UploadClick() != TransferEnd::Done) return 1;
  std::ofstream file(argv[1], std::ios::binary);
  file << WriteSettingsFile(
      {.version = "1.0", .model = ToInteger(state.ModelIndex), .port = ToInteger(state.CommIndex)}, settings,
      RecordOf(motors.Row()));
  return file.flush() ? 0 : 1;
}

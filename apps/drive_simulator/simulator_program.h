// A simulated drive behind a pseudo-terminal, with its orders and its log.
#pragma once

#include <string>
#include <string_view>

#include "apps/drive_simulator/options.h"
#include "apps/drive_simulator/orders.h"
#include "apps/drive_simulator/pseudo_port.h"
#include "apps/drive_simulator/real_time_scheduler.h"
#include "simulator/simulated_drive.h"
#include "simulator/simulated_line.h"

namespace kavr6 {

class SimulatorProgram {
 public:
  /// Nothing can be seen of it before Run.
  explicit SimulatorProgram(const SimulatorOptions& options);

  /// Runs until it is told to end; asleep while there is nothing to do.
  void Run();
  std::string OrdersHelp() const { return orders_.Help(); }

 private:
  void SetUpDrive();
  void SetUpLine();
  void AddEventOrders();
  void AddWiringOrders();
  void AddMisbehaviourOrders();
  void AddLineOrders();
  void SetInput(const std::string& name, const std::string& level);
  void ArmFault(const Orders::Words& words);
  void Sleep();
  void ReadPort();
  void ReadOrders();
  void ReadSignal();
  void Plug();
  void Unplug();
  void Print(std::string_view text) const;

  SimulatorOptions options_;
  RealTimeScheduler scheduler_;
  SimulatedDrive drive_;
  SimulatedLine line_;
  PseudoPort port_;
  Orders orders_;
  std::string unfinishedOrder_;
  int orderInput_ = 0;  // -1 once it has ended
  int signals_ = -1;
  bool running_ = true;
};

}  // namespace kavr6

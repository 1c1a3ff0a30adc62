// The motor dialog: choice of the motor, its currents and its load.
#pragma once

#include "core/main_screen.h"
#include "motor/motor_table.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "MotorDialog". It opens the motor table when it is loaded and keeps it for the whole run.
class MotorDialog : public Form {
 public:
  MotorDialog(Desktop& desktop, MainScreen& screen, MotorTable& table);

  ListBox MotorList{*this, "MotorList"};

  /// Fills MotorList in the order of the table and selects its first row.
  void LoadMotorList();
  /// Selects the row of that name, or the first one when there is none.
  void SetMotorList(const std::string& name);

 protected:
  /// Opens the table and fills the list; a table that cannot be opened is told in a box and ends the program.
  void Load() override;

 private:
  void MotorListClick();

  MainScreen& screen_;
  MotorTable& table_;
};

/// Selects the motor of that name in the dialog, after appending it to the table where it is missing. A motor
/// without a name is ignored. A table that cannot be written is told in a box, and the selection stays.
void AddMotorIfMissing(Desktop& desktop, MotorTable& table, MotorDialog& dialog, const MotorRecord& motor);

}  // namespace kavr6

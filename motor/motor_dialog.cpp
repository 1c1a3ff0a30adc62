#include "motor/motor_dialog.h"

#include "platform/runtime_error.h"

namespace kavr6 {

MotorDialog::MotorDialog(Desktop& desktop, MainScreen& screen, MotorTable& table)
    : Form(desktop, "MotorDialog"), screen_(screen), table_(table) {
  MotorList.Clicked.Set([this] { MotorListClick(); });
}

void MotorDialog::Load() {
  CenterOn(screen_, *this);
  try {
    table_.Open(Screen().ProgramDirectory());
    LoadMotorList();
    if (MotorList.Count() == 0) RaiseNoRecord();  // without a selected motor no setting can be shown or sent
    table_.MoveFirst();
  } catch (const RuntimeError& error) {
    Screen().Ask({.text = "Error " + std::to_string(error.Number()) + ": " + error.what() +
                          " Can't load motor database.  The KAVR6 Configurator cannot operate without it.  "
                          "Please try re-installing the software."});
    Screen().EndProgram(1);
  }
}

void MotorDialog::LoadMotorList() {
  MotorList.Clear();
  for (table_.MoveFirst(); !table_.EndOfTable(); table_.MoveNext())
    MotorList.AddItem(table_.Text("Part Number"));
  if (MotorList.Count() > 0) MotorList.SetListIndex(0);
}

void MotorDialog::SetMotorList(const std::string& name) {
  int index = 0;
  while (index < MotorList.Count() && MotorList.Item(index) != name) ++index;
  if (index < MotorList.Count()) {
    MotorList.SetListIndex(index);
  } else if (MotorList.Count() > 0) {
    MotorList.SetListIndex(0);
  }
}

void MotorDialog::MotorListClick() { table_.Seek(MotorList.Text()); }

void AddMotorIfMissing(Desktop& desktop, MotorTable& table, MotorDialog& dialog, const MotorRecord& motor) {
  if (motor.MotorName.empty()) return;
  if (table.Seek(motor.MotorName)) {
    dialog.SetMotorList(table.Text("part number"));
    return;
  }
  try {
    table.Append(motor);
  } catch (const RuntimeError& error) {
    desktop.Ask({.text = "The motor \"" + motor.MotorName +
                         "\" is not in the motor database and cannot be added to it.  " + error.what() +
                         "  The motor selected so far stays selected.",
                 .icon = BoxIcon::Exclamation});
    return;
  }
  dialog.LoadMotorList();
  dialog.SetMotorList(motor.MotorName);
}

}  // namespace kavr6

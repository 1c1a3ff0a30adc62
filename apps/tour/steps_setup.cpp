#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::ChooseMotor() {
  stage_.Step("Motor: a motor is found by typing, its current lowered, the load given as a ratio");
  QWidget& motor = OpenBy("Motor", "MotorDialog");
  stage_.Type(motor, "MotorList", "KM23");
  MotorDialog& dialog = program_.MotorSetup;
  stage_.Check(dialog.MotorList.Text().starts_with("KM23"), "typing has found " + dialog.MotorList.Text());
  const std::string rated = dialog.txtDriveCurrent.Text();
  stage_.Type(motor, "txtDriveCurrent", "99");
  stage_.Press(motor, Qt::Key_Tab);
  stage_.Check(dialog.txtDriveCurrent.Text() != "99" && dialog.txtDriveCurrent.Text() != rated,
               "99 A became the limit, " + dialog.txtDriveCurrent.Text() + " A");
  stage_.Type(motor, "txtDriveCurrent", "1.8");
  stage_.Click(motor, "MoreOrLess");
  stage_.Type(motor, "txtInertiaRatio", "4");
  stage_.Pause(0.05);
  stage_.Picture(motor, "motor-dialog");
  stage_.Press(motor, Qt::Key_Return);
  stage_.Check(!dialog.Visible(), "Enter has closed the dialog");
  stage_.Check(program_.settings.RunCurrent == 1.8 && program_.settings.InertiaRatio == 4, "it is set");
  stage_.Check(program_.state.Modified && program_.state.InertiaSet, "the settings count as changed");
  stage_.Picture(Main(), "motor-chosen");
}

void Tour::DefineMotor() {
  stage_.Step("A custom motor is defined; the dialog it was opened from is cancelled, the motor stays");
  QWidget& motor = OpenBy("Motor", "MotorDialog");
  stage_.Click(motor, "optCustom");
  stage_.Click(motor, "DefineNewMotor");
  QWidget& editor = stage_.Window("EditMotor");
  stage_.Type(editor, "txtMotorName", "rewound 23");
  stage_.Type(editor, "txtRatedCurrent", "2.4");
  stage_.Type(editor, "txtR", "0");
  stage_.Press(editor, Qt::Key_Tab);
  stage_.Check(program_.CustomMotorSetup.txtR.Text() == "0.1", "a resistance of 0 became the least, 0.1");
  stage_.Picture(editor, "custom-motor");
  stage_.Click(editor, "OK");
  stage_.Check(program_.MotorSetup.OtherCurrent.Caption() == "2.4", "the motor dialog shows 2.4 A");
  stage_.Picture(motor, "motor-dialog-custom");
  stage_.Press(motor, Qt::Key_Escape);
  stage_.Check(!program_.MotorSetup.Visible() && program_.settings.MotorName == "rewound 23" &&
                   !program_.settings.CustomMotor,
               "Esc has left the standard motor selected and the custom one defined");
}

}  // namespace kavr6

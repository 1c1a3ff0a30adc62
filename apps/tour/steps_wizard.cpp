#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::TuneTheMotor() {
  stage_.Step("The smoothing wizard: the motor jogs, speed, gain and phase are found with one slider");
  drive_.Order("revision");
  stage_.WaitFor([this] { return !program_.state.MinorRev.empty(); }, 2.0, "the letter of the revision");
  QWidget& motor = OpenBy("Motor", "MotorDialog");
  stage_.Click(motor, "optCustom");
  stage_.Click(motor, "DefineNewMotor");
  QWidget& editor = stage_.Window("EditMotor");
  desktop_.CallAfter(0.3, [this] { WalkThroughWizard(); });
  stage_.Click(editor, "Wizard");
  const EditMotor& edited = program_.CustomMotorSetup;
  stage_.Check(!program_.SmoothingWizard.Visible() && !program_.state.LiveToolActive,
               "the line is given back");
  stage_.Check(edited.Phase.Text() == std::to_string(program_.SmoothingWizard.ParamSlider.Value()),
               "the editor has taken the phase, " + edited.Phase.Text());
  stage_.Picture(editor, "custom-motor-tuned");
  stage_.Press(editor, Qt::Key_Escape);
  stage_.Press(motor, Qt::Key_Escape);
}

void Tour::WalkThroughWizard() {
  Harmonizer& wizard = program_.SmoothingWizard;
  QWidget& window = stage_.Window("Harmonizer");
  stage_.WaitFor([&] { return wizard.Start.Enabled(); }, 2.0, "the drive has been asked");
  stage_.Picture(window, "wizard-start");
  stage_.Press(window, Qt::Key_Return);
  stage_.Press(window, Qt::Key_PageUp);
  stage_.Check(wizard.lblParam.Caption() == "1.25", "the keyboard moves the slider");
  stage_.Picture(window, "wizard-speed");
  stage_.Click(window, "NextDone");
  stage_.Press(window, Qt::Key_PageUp);
  stage_.Picture(window, "wizard-gain");
  stage_.Click(window, "NextDone");
  stage_.Press(window, Qt::Key_Home);
  stage_.Check(wizard.lblParam.Caption() == "-128", "the phase goes down to -128");
  stage_.Picture(window, "wizard-phase");
  stage_.AnswerNextBox("Don't forget to download the new settings", QMessageBox::Ok);
  stage_.Click(window, "NextDone");
}

}  // namespace kavr6

#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::MeetAnAlarm() {
  stage_.Step("The drive tells of an alarm: it is cleared, and still stands in the history");
  stage_.AnswerNextBox("The fault has been cleared.", QMessageBox::Ok);
  desktop_.CallAfter(0.4, [this] {
    QWidget& fault = stage_.Window("ServoFault");
    stage_.Check(program_.FaultPopup.RedSquare[7].Light() == Lamp::State::Red, "the motor is short");
    stage_.Picture(fault, "fault");
    stage_.Click(fault, "ClearHistory");
    stage_.Click(fault, "OK");
  });
  drive_.Order("alarm 0081");
  stage_.Pause(0.8);
  stage_.Check(program_.state.DriveHasFault && !program_.FaultPopup.Visible(), "the window came and went");
  desktop_.CallAfter(0.2, [this] {
    QWidget& history = stage_.Window("AlarmHistory");
    stage_.Picture(history, "alarm-history");
    stage_.Click(history, "OK");
  });
  stage_.Command(Main(), "MenuHistory");
  stage_.Check(program_.LastAlarms.RedSquare[7].Light() == Lamp::State::Red, "the drive has kept it");
  stage_.AnswerNextBox("The fault has been cleared.", QMessageBox::Ok);
  stage_.Command(Main(), "MenuClearFault");
}

void Tour::TestTheMotor() {
  stage_.Step("Self test: the motor turns until Stop");
  desktop_.CallAfter(0.3, [this] {
    QWidget& test = stage_.Window("SelfTest");
    stage_.Picture(test, "self-test");
    test.close();
    stage_.Check(test.isVisible(), "the frame does not close it");
    stage_.Click(test, "StopSelfTest");
  });
  stage_.Command(Main(), "MenuSelfTest");
  stage_.Check(!program_.MotorTest.Visible(), "Stop has closed it");
}

void Tour::RestoreTheDrive() {
  stage_.Step("The drive gets its factory values back");
  stage_.AnswerNextBox("Do you want to erase all the information", QMessageBox::Ok, "restore-question");
  stage_.Command(Main(), "MenuRestore");
  stage_.Click(Main(), "Upload");
  stage_.Check(!program_.settings.StallDetect && program_.settings.BrakeMode == 3, "what was set is gone");
}

}  // namespace kavr6

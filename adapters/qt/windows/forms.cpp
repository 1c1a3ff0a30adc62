#include "adapters/qt/windows/forms.h"

#include <QDialog>
#include <QMainWindow>
#include <algorithm>
#include <array>
#include <string_view>

#include "ui_About.h"
#include "ui_AdvancedSettings.h"
#include "ui_AlarmHistory.h"
#include "ui_Calculator.h"
#include "ui_CodeWindow.h"
#include "ui_EditMotor.h"
#include "ui_EncoderDialog.h"
#include "ui_EventList.h"
#include "ui_ExecStatus.h"
#include "ui_Harmonizer.h"
#include "ui_HelpScreen.h"
#include "ui_IOdialog.h"
#include "ui_MainForm.h"
#include "ui_MotionMenu.h"
#include "ui_MotorDialog.h"
#include "ui_PulseDirDialog.h"
#include "ui_RegenDialog.h"
#include "ui_SelfTest.h"
#include "ui_ServoFault.h"
#include "ui_StartForm.h"
#include "ui_Summary.h"
#include "ui_TEQhelp.h"
#include "ui_VTLdialog.h"
#include "ui_VTLterm.h"
#include "ui_VelocityDialog.h"

namespace kavr6 {
namespace {

template <class Base, class Design>
std::unique_ptr<QWidget> Build() {
  auto window = std::make_unique<Base>();
  Design().setupUi(window.get());
  return window;
}

struct FormRow {
  std::string_view name;
  std::unique_ptr<QWidget> (*build)();
  Qt::WindowFlags flags = {};
};

const std::array kForms{
    FormRow{"StartForm", Build<QWidget, Ui::StartForm>, Qt::SplashScreen | Qt::FramelessWindowHint},
    FormRow{"MainForm", Build<QMainWindow, Ui::MainForm>},
    FormRow{"About", Build<QDialog, Ui::About>},
    FormRow{"MotorDialog", Build<QDialog, Ui::MotorDialog>},
    FormRow{"EditMotor", Build<QDialog, Ui::EditMotor>},
    FormRow{"MotionMenu", Build<QDialog, Ui::MotionMenu>},
    FormRow{"PulseDirDialog", Build<QDialog, Ui::PulseDirDialog>},
    FormRow{"VelocityDialog", Build<QDialog, Ui::VelocityDialog>},
    FormRow{"AdvancedSettings", Build<QDialog, Ui::AdvancedSettings>},
    FormRow{"VTLdialog", Build<QDialog, Ui::VTLdialog>},
    FormRow{"IOdialog", Build<QDialog, Ui::IOdialog>},
    FormRow{"EncoderDialog", Build<QDialog, Ui::EncoderDialog>},
    FormRow{"RegenDialog", Build<QDialog, Ui::RegenDialog>},
    FormRow{"VTLterm", Build<QDialog, Ui::VTLterm>},
    FormRow{"Summary", Build<QDialog, Ui::Summary>},
    FormRow{"TEQhelp", Build<QDialog, Ui::TEQhelp>},
    FormRow{"EFcodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"LimCodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"IOcodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"RScodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"MRcodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"BRcodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"ControlModes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"DefCodes", Build<QDialog, Ui::CodeWindow>},
    FormRow{"Calculator", Build<QDialog, Ui::Calculator>},
    FormRow{"Harmonizer", Build<QDialog, Ui::Harmonizer>},
    FormRow{"ExecStatus", Build<QDialog, Ui::ExecStatus>},
    FormRow{"AlarmHistory", Build<QDialog, Ui::AlarmHistory>},
    FormRow{"ServoFault", Build<QDialog, Ui::ServoFault>},
    FormRow{"HelpScreen", Build<QDialog, Ui::HelpScreen>},
    FormRow{"EventList", Build<QDialog, Ui::EventList>},
    FormRow{"SelfTest", Build<QDialog, Ui::SelfTest>},
};

/// What a design marks with "keepsRoom" hides without moving anything around it.
void KeepRoom(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->property("keepsRoom").toBool()) continue;
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
}

}  // namespace

std::unique_ptr<QWidget> BuildWindow(const std::string& formName) {
  const auto* const row =
      std::find_if(kForms.begin(), kForms.end(), [&](const FormRow& r) { return r.name == formName; });
  if (row == kForms.end()) return nullptr;
  std::unique_ptr<QWidget> window = row->build();
  window->setObjectName(QString::fromStdString(formName));  // forms may share a design
  KeepRoom(*window);
  if (row->flags != Qt::WindowFlags()) window->setWindowFlags(row->flags);
  return window;
}

}  // namespace kavr6

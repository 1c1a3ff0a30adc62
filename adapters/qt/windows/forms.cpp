#include "adapters/qt/windows/forms.h"

#include <QDialog>
#include <QMainWindow>
#include <algorithm>
#include <array>
#include <string_view>

#include "adapters/qt/windows/dialog_page.h"
#include "ui_About.h"
#include "ui_AdvancedSettings.h"
#include "ui_AlarmHistory.h"
#include "ui_Calculator.h"
#include "ui_CodeWindow.h"
#include "ui_CompareWindow.h"
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

template <class Design>
std::unique_ptr<QWidget> BuildDialog() {
  auto dialog = std::make_unique<QDialog>();
  Design().setupUi(dialog.get());
  new DialogPage(*dialog);  // belongs to the dialog
  return dialog;
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
    FormRow{"MotorDialog", BuildDialog<Ui::MotorDialog>},
    FormRow{"EditMotor", BuildDialog<Ui::EditMotor>},
    FormRow{"MotionMenu", BuildDialog<Ui::MotionMenu>},
    FormRow{"PulseDirDialog", BuildDialog<Ui::PulseDirDialog>},
    FormRow{"VelocityDialog", BuildDialog<Ui::VelocityDialog>},
    FormRow{"AdvancedSettings", BuildDialog<Ui::AdvancedSettings>},
    FormRow{"VTLdialog", BuildDialog<Ui::VTLdialog>},
    FormRow{"IOdialog", BuildDialog<Ui::IOdialog>},
    FormRow{"EncoderDialog", BuildDialog<Ui::EncoderDialog>},
    FormRow{"RegenDialog", BuildDialog<Ui::RegenDialog>},
    FormRow{"VTLterm", BuildDialog<Ui::VTLterm>},
    FormRow{"Summary", BuildDialog<Ui::Summary>},
    FormRow{"TEQhelp", BuildDialog<Ui::TEQhelp>},
    FormRow{"EFcodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"LimCodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"IOcodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"RScodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"MRcodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"BRcodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"ControlModes", BuildDialog<Ui::CodeWindow>},
    FormRow{"DefCodes", BuildDialog<Ui::CodeWindow>},
    FormRow{"Calculator", BuildDialog<Ui::Calculator>},
    FormRow{"Harmonizer", BuildDialog<Ui::Harmonizer>},
    FormRow{"ExecStatus", BuildDialog<Ui::ExecStatus>},
    FormRow{"AlarmHistory", BuildDialog<Ui::AlarmHistory>},
    FormRow{"ServoFault", BuildDialog<Ui::ServoFault>},
    FormRow{"CompareWindow", BuildDialog<Ui::CompareWindow>},
    FormRow{"HelpScreen", Build<QDialog, Ui::HelpScreen>},
    FormRow{"EventList", BuildDialog<Ui::EventList>},
    FormRow{"SelfTest", BuildDialog<Ui::SelfTest>},
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

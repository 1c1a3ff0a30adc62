#include "platform/desktop.h"

#include <algorithm>
#include <cstdlib>

#include "platform/form.h"

namespace kavr6 {

void Desktop::ShowForm(Form& form, bool modal) {
  Form* const before = Front();
  std::erase(shown_, &form);
  shown_.push_back(&form);
  OpenWindow(form, modal);
  FrontChanged(before);
}

void Desktop::HideForm(Form& form) {
  Form* const before = Front();
  std::erase(shown_, &form);
  CloseWindow(form);
  FrontChanged(before);
}

void Desktop::ForgetForm(Form& form) {
  std::erase(shown_, &form);
  CloseWindow(form);
}

void Desktop::BroughtToFront(Form& form) {
  const auto place = std::find(shown_.begin(), shown_.end(), &form);
  if (place == shown_.end()) return;
  Form* const before = Front();
  std::rotate(place, place + 1, shown_.end());
  FrontChanged(before);
}

void Desktop::FrontChanged(Form* before) {
  if (before == Front()) return;
  if (before != nullptr) before->Deactivate.Raise();
  // The handler may have changed the order again.
  if (Form* const front = Front(); front != nullptr && front != before) front->Activate.Raise();
}

std::string Desktop::ActiveFormName() const { return Front() == nullptr ? std::string() : Front()->Name(); }

void Desktop::Enter(const Task& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    ReportError(error);
  }
}

void Desktop::ReportError(const RuntimeError& error) {
  // What goes wrong while the report stands open adds no second one.
  if (reporting_) EndProgram(1);
  reporting_ = true;
  MessageBox report{.text = "Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.what(),
                    .icon = BoxIcon::Critical};
  if (RescueWork) {
    report.text += "\n\nThe program ends now.  Do you want to save your settings to a file first?";
    report.buttons = BoxButtons::YesNo;
  }
  if (Ask(report) == BoxAnswer::Yes) RescueWork();
  EndProgram(1);
  std::abort();  // not reached: the compiler does not trust a virtual function that never returns
}

}  // namespace kavr6

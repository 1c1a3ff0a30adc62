#include "platform/desktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <memory>
#include <utility>

#include "platform/form.h"

namespace kavr6 {

void Desktop::ShowForm(Form& form, bool modal) {
  if (std::ranges::count(shown_, &form) == 0) {
    opened_.push_back({&form, modal});
  } else if (modal) {
    // What has opened above it stands behind it from now on.
    const auto place = std::ranges::find(opened_, &form, &Opened::form);
    place->modal = true;
    std::rotate(place, place + 1, opened_.end());
  }
  ToFront(form);
  OpenWindow(form, modal);
  TellFront();
  if (modal) Settled();
}

// What is modal must not begin anew because the user has read something beside it.
void Desktop::ToFront(Form& form) {
  if (Front() == &form) return;
  std::erase(shown_, &form);
  const bool keepsFront = form.Companion() && !shown_.empty() && std::ranges::any_of(opened_, &Opened::modal);
  shown_.insert(shown_.end() - (keepsFront ? 1 : 0), &form);
}

void Desktop::TakeOff(const Form& form) {
  std::erase(shown_, &form);
  std::erase_if(opened_, [&form](const Opened& opened) { return opened.form == &form; });
}

void Desktop::HideForm(Form& form) {
  TakeOff(form);
  CloseWindow(form);
  TellFront();
}

void Desktop::ForgetForm(Form& form) {
  TakeOff(form);
  if (active_ == &form) active_ = nullptr;
  DropWindow(form);
}

void Desktop::BroughtToFront(Form& form) {
  if (std::ranges::count(shown_, &form) == 0 || !WhatBlocks(form).empty()) return;
  ToFront(form);
  TellFront();
}

// Each handler may show and hide windows and so get here again; what it has settled is not told twice.
void Desktop::TellFront() {
  for (;;) {
    Form* const front = Front();
    if (active_ == front) {
      if (front == nullptr || !front->SetInFront(true)) return;
    } else if (active_ == nullptr) {
      active_ = front;
      front->Activate.Raise();
    } else if (!active_->SetInFront(false)) {
      std::exchange(active_, nullptr)->Deactivate.Raise();
    }
  }
}

std::string Desktop::WhatBlocks(const Form& form) const {
  if (form.Companion()) return {};
  for (auto above = opened_.rbegin(); above != opened_.rend() && above->form != &form; ++above) {
    if (above->form == nullptr) return "a box";
    if (above->modal) return "window '" + above->form->Name() + "'";
  }
  return {};
}

class Desktop::BoxOnScreen {
 public:
  explicit BoxOnScreen(Desktop& desktop) : desktop_(desktop) {
    desktop_.opened_.push_back({nullptr, true});
    desktop_.Settled();
  }
  BoxOnScreen(const BoxOnScreen&) = delete;
  BoxOnScreen& operator=(const BoxOnScreen&) = delete;
  ~BoxOnScreen() {
    auto& opened = desktop_.opened_;
    const auto last = std::find_if(opened.rbegin(), opened.rend(),
                                   [](const Opened& entry) { return entry.form == nullptr; });
    opened.erase(std::next(last).base());
    desktop_.BoxGone();
  }

 private:
  Desktop& desktop_;
};

BoxAnswer Desktop::Ask(const MessageBox& box) {
  const BoxOnScreen standing(*this);
  return ShowBox(box);
}

std::string Desktop::ChooseFile(const FileDialog& dialog) {
  const BoxOnScreen standing(*this);
  return ShowFileDialog(dialog);
}

bool Desktop::RunDialog(const std::function<bool()>& dialog) {
  const BoxOnScreen standing(*this);
  return dialog();
}

double Desktop::SecondsOfDay() const {
  const std::time_t now = std::time(nullptr);
  const std::tm* const local = std::localtime(&now);  // there is one thread
  return local->tm_hour * 3600.0 + local->tm_min * 60.0 + local->tm_sec;
}

void Desktop::OpenOutside(const std::string& address) {
  if (!OpenAddress(address))
    Ask({.text = "No program of this computer opens " + address + ".", .icon = BoxIcon::Exclamation});
}

void Desktop::WantHelp(const std::string& where) {
  if (HelpWanted) HelpWanted(where);
}

std::string Desktop::ActiveFormName() const { return Front() == nullptr ? std::string() : Front()->Name(); }

void Desktop::Enter(const Task& work) {
  try {
    work();
    Settled();
  } catch (const RuntimeError& error) {
    // What else goes wrong while the report stands open must not end what the user does there.
    if (!reporting_) ReportError(error);
  }
}

void Desktop::ReportError(const RuntimeError& error) {
  // Where the end is an exception, as in tests, the next report is one of its own.
  const std::unique_ptr<bool, void (*)(bool*)> reporting(&(reporting_ = true),
                                                         [](bool* flag) { *flag = false; });
  MessageBox report{.text = "Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.what(),
                    .icon = BoxIcon::Critical};
  if (RescueWork) {
    report.text += "\n\nThe program ends now.  Do you want to save your settings to a file first?";
    report.buttons = BoxButtons::YesNo;
    report.escapeAccepts = true;
  }
  try {
    if (Ask(report) == BoxAnswer::Yes) RescueWork();
  } catch (const RuntimeError&) {
    // There is nothing left to try.
  }
  EndProgram(1);
}

void Desktop::EndProgram(int exitCode) {
  DoAtEnd();
  EndProcess(exitCode);
  std::abort();  // not reached: the compiler does not trust a virtual function that never returns
}

void Desktop::DoAtEnd() {
  while (!atEnd_.empty()) {
    const Task task = std::move(atEnd_.back());
    atEnd_.pop_back();
    try {
      task();
    } catch (const std::exception& fault) {
      std::fprintf(stderr, "At the program's end: %s\n", fault.what());
    }
  }
}

}  // namespace kavr6

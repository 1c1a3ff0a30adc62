// Every window of the program at once, shown on no screen.
#pragma once

#include <QApplication>
#include <QWidget>
#include <memory>
#include <vector>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/style/program_style.h"
#include "tests/support/scene.h"

namespace kavr6 {

struct ShownWindow {
  std::string name;
  std::unique_ptr<QWidget> window;
  std::unique_ptr<Binder> binder;
};

/// The windows with what their forms show after an upload; the colours are those of `scheme`.
struct ShownProgram {
  explicit ShownProgram(style::Scheme scheme) {
    style::UseProgramStyle();
    style::PretendSystemScheme(scheme);
    QApplication::setCursorFlashTime(0);  // pictures are compared
    scene.Start();
    scene.main.Upload.Click();
    for (Form* form : scene.Forms()) {
      if (auto* const dialog = dynamic_cast<SetupDialog*>(form)) dialog->Open();
      std::unique_ptr<QWidget> window = BuildWindow(form->Name());
      auto binder = std::make_unique<Binder>(*form, *window);
      window->show();
      windows.push_back({form->Name(), std::move(window), std::move(binder)});
    }
    QCoreApplication::processEvents();
  }
  ~ShownProgram() {
    for (ShownWindow& shown : windows) shown.binder.reset();
    style::PretendSystemScheme(std::nullopt);
  }

  Scene scene;
  std::vector<ShownWindow> windows;
};

}  // namespace kavr6

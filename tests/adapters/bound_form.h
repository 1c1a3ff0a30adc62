// A form with a control of each kind that the main window has not, bound to a plain window.
#pragma once

#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/widgets/lamp.h"
#include "adapters/qt/windows/widgets/page_browser.h"
#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/headless/headless_desktop.h"
#include "platform/page_view.h"
#include "platform/text_area.h"

namespace kavr6 {

struct Fields : Form {
  explicit Fields(Desktop& desktop) : Form(desktop, "Fields") {
    for (const char* row : {"one", "two", "three"}) list.AddItem(row);
  }
  OptionGroup group;
  TextBox text{*this, "text"};
  ListBox list{*this, "list"};
  CheckBox check{*this, "check"};
  OptionButton optA{*this, "optA", group};
  OptionButton optB{*this, "optB", group};
  OptionGroup otherGroup;
  OptionButton optC{*this, "optC", otherGroup};
  Slider slider{*this, "slider", {10, 200, 2, 20, 10}};
  Button button{*this, "button", "Go && stop"};
  ControlArray<Lamp> lamps{*this, "lamp", 2};
  Frame box{*this, "box"};
  TextArea line{*this, "line", TextArea::Use::Edit};
  TextArea record{*this, "record", TextArea::Use::Read};
  PageView pages{*this, "pages"};
};

struct FieldsWindow : QWidget {
  template <class W>
  W* Add(const char* name) {
    auto* const widget = new W;
    widget->setObjectName(name);
    column->addWidget(widget);
    return widget;
  }
  QVBoxLayout* column = new QVBoxLayout(this);
  QLineEdit* text = Add<QLineEdit>("text");
  QListWidget* list = Add<QListWidget>("list");
  QCheckBox* check = Add<QCheckBox>("check");
  QRadioButton* optA = Add<QRadioButton>("optA");
  QRadioButton* optB = Add<QRadioButton>("optB");
  QRadioButton* optC = Add<QRadioButton>("optC");
  QSlider* slider = Add<QSlider>("slider");
  QPushButton* button = Add<QPushButton>("button");
  widgets::Lamp* lamps[2] = {Add<widgets::Lamp>("lamp_0"), Add<widgets::Lamp>("lamp_1")};
  QGroupBox* box = Add<QGroupBox>("box");
  QPlainTextEdit* line = Add<QPlainTextEdit>("line");
  QPlainTextEdit* record = Add<QPlainTextEdit>("record");
  widgets::PageBrowser* pages = Add<widgets::PageBrowser>("pages");
};

class Bound : public testing::Test {
 protected:
  void SetUp() override {
    form.Show();
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
  }
  HeadlessDesktop desktop;
  Fields form{desktop};
  FieldsWindow window;
  Binder binder{form, window};
};

}  // namespace kavr6

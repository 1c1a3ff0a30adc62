#include "adapters/qt/binder.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "adapters/qt/forms.h"
#include "adapters/qt/widgets/connector_line.h"
#include "adapters/qt/widgets/hot_spot.h"
#include "adapters/qt/widgets/image_button.h"
#include "adapters/qt/widgets/lamp.h"
#include "adapters/qt/widgets/percent_panel.h"
#include "adapters/qt/widgets/picture.h"
#include "adapters/qt/widgets/summary_grid.h"
#include "core/start_form.h"
#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/headless_desktop.h"

namespace kavr6 {
namespace {

/// A form with one control of each kind that is seen.
struct EveryKind : Form {
  explicit EveryKind(Desktop& desktop) : Form(desktop, "EveryKind") {
    for (const char* row : {"one", "two", "three"}) {
      combo.AddItem(row);
      list.AddItem(row);
    }
  }
  OptionGroup group;
  TextBox text{*this, "text"};
  ListBox combo{*this, "combo"};
  ListBox list{*this, "list"};
  CheckBox check{*this, "check"};
  OptionButton optA{*this, "optA", group};
  OptionButton optB{*this, "optB", group};
  Slider slider{*this, "slider", {10, 200, 2, 20, 10}};
  Button button{*this, "button", "Go && stop"};
  ImageButton image{*this, "image", "MotorUp", "MotorDown"};
  HotSpot spot{*this, "spot"};
  MenuItem menu{*this, "menu", "Open..."};
  Grid grid{*this, "grid", 3, 2};
  Label label{*this, "label", "A && B"};
  Frame frame{*this, "frame"};
  Picture picture{*this, "picture"};
  Lamp lamp{*this, "lamp"};
  PercentPanel panel{*this, "panel"};
  ConnectorLine line{*this, "line"};
  Timer timer{*this, "timer"};
};

/// Its window, with a name for every widget.
struct EveryWidget : QMainWindow {
  QVBoxLayout* Column() {
    setCentralWidget(new QWidget);
    return new QVBoxLayout(centralWidget());
  }
  template <class W>
  W* Add(const char* name) {
    auto* const widget = new W;
    widget->setObjectName(name);
    column->addWidget(widget);
    return widget;
  }
  EveryWidget() { action->setObjectName("menu"); }
  QVBoxLayout* column = Column();
  QAction* action = menuBar()->addMenu("&File")->addAction("&Open...");
  QLineEdit* text = Add<QLineEdit>("text");
  QComboBox* combo = Add<QComboBox>("combo");
  QListWidget* list = Add<QListWidget>("list");
  QCheckBox* check = Add<QCheckBox>("check");
  QRadioButton* optA = Add<QRadioButton>("optA");
  QRadioButton* optB = Add<QRadioButton>("optB");
  QSlider* slider = Add<QSlider>("slider");
  QPushButton* button = Add<QPushButton>("button");
  widgets::ImageButton* image = Add<widgets::ImageButton>("image");
  widgets::HotSpot* spot = Add<widgets::HotSpot>("spot");
  widgets::SummaryGrid* grid = Add<widgets::SummaryGrid>("grid");
  QLabel* label = Add<QLabel>("label");
  QFrame* frame = Add<QFrame>("frame");
  widgets::Picture* picture = Add<widgets::Picture>("picture");
  widgets::Lamp* lamp = Add<widgets::Lamp>("lamp");
  widgets::PercentPanel* panel = Add<widgets::PercentPanel>("panel");
  widgets::ConnectorLine* line = Add<widgets::ConnectorLine>("line");
};

std::string BindFault(Form& form, QWidget& window) {
  try {
    const Binder binder(form, window);
  } catch (const BindError& error) {
    return error.what();
  }
  return "";
}

TEST(Binder, NamesEveryControlThatHasNoWidgetOrOneOfAnotherKind) {
  HeadlessDesktop desktop;
  EveryKind form(desktop);
  for (const Control* control : form.Controls()) {
    if (control == &form.timer) continue;
    const std::string what =
        "EveryKind: " + std::string(KindName(control->Kind())) + " '" + control->Name() + "' ";
    const QString name = QString::fromStdString(control->Name());
    EveryWidget missing;
    missing.findChild<QObject*>(name)->setObjectName("elsewhere");
    EXPECT_EQ(BindFault(form, missing), what + "has no widget");
    if (control == &form.menu) continue;
    missing.Add<QSpinBox>(control->Name().c_str());
    EXPECT_EQ(BindFault(form, missing), what + "cannot be shown by a QSpinBox");
    EveryWidget twice;
    twice.Add<QLabel>(control->Name().c_str());
    EXPECT_EQ(BindFault(form, twice), what + "has several widgets");
  }
}

TEST(Binder, NamesEveryInputWidgetAndMenuCommandWithoutAControl) {
  HeadlessDesktop desktop;
  Form form(desktop, "Empty");
  const EveryWidget all;
  for (QWidget* widget : all.centralWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!IsInput(*widget)) continue;
    QWidget window;
    widget->setParent(&window);
    EXPECT_EQ(BindFault(form, window), std::string("Empty: ") + widget->metaObject()->className() + " '" +
                                           widget->objectName().toStdString() + "' has no control");
  }
  EveryWidget menuOnly;
  delete menuOnly.takeCentralWidget();
  EXPECT_EQ(BindFault(form, menuOnly), "Empty: QAction 'menu' has no control");
  QScrollArea inert;  // its scroll bars are no inputs of the form
  inert.setWidget(new QLabel("Current"));
  EXPECT_EQ(BindFault(form, inert), "");
}

TEST(Binder, EveryDesignFitsItsForm) {
  HeadlessDesktop desktop;
  MainScreen mainScreen(desktop);
  StartForm splash(desktop, mainScreen);
  About about(desktop, mainScreen);
  for (Form* form : std::initializer_list<Form*>{&mainScreen, &splash, &about}) {
    const std::unique_ptr<QWidget> window = BuildWindow(form->Name());
    ASSERT_NE(window, nullptr) << form->Name();
    EXPECT_EQ(BindFault(*form, *window), "");
    for (const Control* control : form->Controls()) {
      auto* const widget = window->findChild<QWidget*>(QString::fromStdString(control->Name()));
      if (widget == nullptr || !IsInput(*widget)) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
          << form->Name() << " " << control->Name();
    }
  }
}

class Bound : public testing::Test {
 protected:
  void SetUp() override {
    window.show();
    window.activateWindow();
    QCoreApplication::processEvents();
  }
  HeadlessDesktop desktop;
  EveryKind form{desktop};
  EveryWidget window;
  Binder binder{form, window};
};

TEST_F(Bound, UsersActionsReachTheControlsOnce) {
  struct Row {
    const char* what;
    std::function<void()> act;
    std::function<bool()> arrived;
    int events = 1;
  };
  int events = 0;
  const auto count = [&events] { ++events; };
  for (Event<>* event :
       {&form.text.Change, &form.combo.Clicked, &form.list.Clicked, &form.check.Clicked, &form.optA.Clicked,
        &form.optB.Clicked, &form.slider.Change, &form.button.Clicked, &form.image.Clicked,
        &form.spot.Clicked, &form.menu.Clicked, &form.list.DoubleClicked})
    event->Set(count);
  int gridRow = -1;
  form.grid.DoubleClicked.Set([&](int row) { gridRow = row, count(); });
  const auto visual = [this](int row) {
    return window.list->visualItemRect(window.list->item(row)).center();
  };
  const Row rows[] = {
      {"type", [&] { QTest::keyClicks(window.text, "12"); }, [&] { return form.text.Text() == "12"; }, 2},
      {"combo", [&] { QTest::keyClick(window.combo, Qt::Key_Down); },
       [&] { return form.combo.ListIndex() == 0; }},
      {"list", [&] { QTest::mouseClick(window.list->viewport(), Qt::LeftButton, {}, visual(1)); },
       [&] { return form.list.ListIndex() == 1; }},
      {"list twice", [&] { QTest::mouseDClick(window.list->viewport(), Qt::LeftButton, {}, visual(1)); },
       [&] { return form.list.ListIndex() == 1; }},
      {"check", [&] { window.check->click(); }, [&] { return form.check.Value(); }},
      {"uncheck", [&] { window.check->click(); }, [&] { return !form.check.Value(); }},
      {"option", [&] { window.optB->click(); },
       [&] { return form.optB.Value() && window.optB->isChecked(); }},
      {"same option", [&] { window.optB->click(); },
       [&] { return form.optB.Value() && window.optB->isChecked(); }, 0},
      {"option by arrow", [&] { QTest::keyClick(window.optB, Qt::Key_Up); },
       [&] { return form.optA.Value() && window.optA->isChecked() && !window.optB->isChecked(); }},
      {"slider", [&] { QTest::keyClick(window.slider, Qt::Key_PageUp); },
       [&] { return form.slider.Value() == 30; }},
      {"button", [&] { QTest::keyClick(window.button, Qt::Key_Space); },
       [&] { return form.FocusedControl() == &form.button; }},
      {"press image", [&] { QTest::mousePress(window.image, Qt::LeftButton); },
       [&] { return form.image.Picture() == "MotorDown"; }, 0},
      {"release image", [&] { QTest::mouseRelease(window.image, Qt::LeftButton); },
       [&] { return form.image.Picture() == "MotorUp"; }},
      {"hot spot", [&] { window.spot->click(); }, [&] { return form.FocusedControl() == &form.spot; }},
      {"menu", [&] { window.action->trigger(); }, [&] { return form.FocusedControl() == &form.spot; }},
      {"grid", [&] { emit window.grid->rowDoubleClicked(2); }, [&] { return gridRow == 2; }},
  };
  for (const Row& row : rows) {
    events = 0;
    row.act();
    EXPECT_TRUE(row.arrived()) << row.what;
    EXPECT_EQ(events, row.events) << row.what;
  }
}

TEST_F(Bound, ChangesOfControlsAreShownAndDoNotComeBack) {
  int events = 0;
  form.slider.Scrolled.Set([&] { ++events; });
  form.combo.SetListIndex(2);
  form.list.SetListIndex(1);
  form.list.SetListIndex(-1);
  form.check.SetValue(true);
  form.optA.SetValue(true);
  form.optA.SetValue(false);
  form.slider.SetValue(500);
  form.button.SetCaption("Halt");
  form.button.SetEnabled(false);
  form.frame.SetVisible(false);
  form.menu.SetEnabled(false);
  form.panel.SetFloodPercent(40);
  form.line.SetBorderColor(0x0000FF);
  form.picture.SetImage("Drive");
  form.label.SetCaption("<b>&& x");
  form.grid.SetText(1, 1, "cell");
  form.spot.SetToolTip("Power");
  EXPECT_EQ(window.combo->currentText(), "three");
  EXPECT_TRUE(window.list->selectedItems().isEmpty());
  EXPECT_TRUE(window.check->isChecked());
  EXPECT_FALSE(window.optA->isChecked());
  EXPECT_EQ(window.slider->value(), 200);
  EXPECT_EQ(window.slider->pageStep(), 20);
  EXPECT_EQ(window.button->text(), "Halt");
  EXPECT_FALSE(window.button->isEnabled());
  EXPECT_TRUE(window.frame->isHidden());
  EXPECT_FALSE(window.action->isEnabled());
  EXPECT_EQ(window.panel->value(), 40);
  EXPECT_EQ(window.line->colour(), QColor(Qt::red));
  EXPECT_EQ(window.picture->image(), "Drive");
  EXPECT_EQ(window.label->text(), "<b>& x");
  EXPECT_EQ(window.grid->item(1, 1)->text(), "cell");
  EXPECT_EQ(window.spot->toolTip(), "Power");
  form.combo.Clear();
  form.combo.AddItem("only", 7);
  form.combo.SetItemToolTip(0, "/dev/ttyS0");
  form.combo.SetListIndex(0);
  EXPECT_EQ(window.combo->currentText(), "only");
  EXPECT_EQ(window.combo->toolTip(), "/dev/ttyS0");
  EXPECT_EQ(events, 0);
  EXPECT_EQ(form.FocusedControl(), &form.text);
}

TEST_F(Bound, CaptionKeepsTheMnemonicOfTheDesign) {
  EXPECT_EQ(window.button->text(), "Go && stop");
  EXPECT_EQ(window.label->text(), "A & B");
  EXPECT_EQ(window.action->text(), "&Open...");
}

TEST_F(Bound, TypingInTheMiddleLeavesTheCursorUnlessTheHandlerChangesTheText) {
  form.text.SetText("1\u00e95");
  window.check->setFocus();
  window.text->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(window.text->selectedText(), "1\u00e95");
  window.text->setCursorPosition(2);
  EXPECT_EQ(form.text.SelStart(), 3u);
  QTest::keyClick(window.text, Qt::Key_2);
  EXPECT_EQ(form.text.Text(), "1\u00e925");
  EXPECT_EQ(window.text->cursorPosition(), 3);
  form.text.Change.Set([this] { form.text.SetText("9"); });
  QTest::keyClick(window.text, Qt::Key_7);
  EXPECT_EQ(window.text->text(), "9");
}

TEST_F(Bound, FocusTravelsBothWays) {
  EXPECT_EQ(form.FocusedControl(), &form.text) << "the first field of a new window";
  std::string log;
  form.text.LostFocus.Set([&] { log += "lost "; });
  form.text.GotFocus.Set([&] { log += "got "; });
  window.check->setFocus(Qt::TabFocusReason);
  window.text->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(log, "lost got ");
  window.check->setFocus(Qt::BacktabFocusReason);
  form.text.Focus();
  EXPECT_TRUE(window.text->hasFocus());
  EXPECT_EQ(log, "lost got lost got ");
  window.check->setFocus(Qt::PopupFocusReason);
  EXPECT_EQ(form.FocusedControl(), &form.text);
}

TEST_F(Bound, ClickIntoAFieldSelectsAllOfIt) {
  form.text.SetText("123");
  window.check->setFocus();
  QTest::mouseClick(window.text, Qt::LeftButton);
  EXPECT_EQ(window.text->selectedText(), "123");
  QTest::mouseClick(window.text, Qt::LeftButton);
  EXPECT_EQ(window.text->selectedText(), "");
}

TEST_F(Bound, WheelMovesOnlyAFieldWithTheFocus) {
  form.combo.SetListIndex(1);
  form.slider.SetValue(50);
  const auto turn = [](QWidget& widget) {
    QWheelEvent wheel({3, 3}, widget.mapToGlobal(QPointF(3, 3)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
  };
  window.text->setFocus();
  turn(*window.combo);
  turn(*window.slider);
  EXPECT_TRUE(window.text->hasFocus());
  EXPECT_EQ(form.combo.ListIndex(), 1);
  EXPECT_EQ(form.slider.Value(), 50);
  window.combo->setFocus();
  turn(*window.combo);
  EXPECT_EQ(form.combo.ListIndex(), 0);
}

}  // namespace
}  // namespace kavr6

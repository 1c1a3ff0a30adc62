// Windows and their forms.
#include <QTest>
#include <tuple>

#include <gtest/gtest.h>

#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/widgets/connector_line.h"
#include "adapters/qt/windows/widgets/image_button.h"
#include "adapters/qt/windows/widgets/percent_panel.h"
#include "adapters/qt/windows/widgets/summary_grid.h"
#include "tests/adapters/bound_form.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

std::string BindFault(Form& form, QWidget& window) {
  try {
    const Binder binder(form, window);
  } catch (const BindError& error) {
    return error.what();
  }
  return "";
}

TEST(Binder, NamesWhatDoesNotFit) {
  HeadlessDesktop desktop;
  Fields form(desktop);
  FieldsWindow window;
  window.list->setObjectName("elsewhere");
  EXPECT_EQ(BindFault(form, window), "Fields: list 'list' has no widget");
  window.slider->setObjectName("list");
  EXPECT_EQ(BindFault(form, window), "Fields: list 'list' cannot be shown by a QSlider");
  Form empty(desktop, "Empty");
  EXPECT_EQ(BindFault(empty, window), "Empty: QLineEdit 'text' has no control");
  FieldsWindow framed;
  form.box.Hold({&form.check});
  EXPECT_EQ(BindFault(form, framed), "Fields: 'check' stands in no frame, its control in 'box'");
  framed.check->setParent(framed.box);
  EXPECT_EQ(BindFault(form, framed), "");
  framed.optA->setParent(framed.box);
  EXPECT_EQ(BindFault(form, framed), "Fields: 'optA' stands in 'box', its control in no frame");
}

TEST(Binder, EveryDesignFitsItsForm) {
  Scene scene;
  for (Form* form : scene.Forms()) {
    const std::unique_ptr<QWidget> window = BuildWindow(form->Name());
    QStringList mnemonics;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      for (const char* words : {"text", "title"}) {
        const QString key = QKeySequence::mnemonic(widget->property(words).toString()).toString();
        EXPECT_FALSE(!key.isEmpty() && mnemonics.contains(key)) << form->Name() << " " << key.toStdString();
        mnemonics << key;
      }
    }
    EXPECT_EQ(BindFault(*form, *window), "");
    for (const Control* control : form->Controls()) {
      auto* const widget = window->findChild<QWidget*>(QString::fromStdString(control->Name()));
      if (widget == nullptr || !IsInput(*widget)) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
          << form->Name() << " " << control->Name();
      constexpr std::array kFields{ControlKind::TextBox,      ControlKind::TextArea, ControlKind::CheckBox,
                                   ControlKind::OptionButton, ControlKind::ListBox,  ControlKind::Slider};
      if (std::ranges::count(kFields, control->Kind()) == 0) continue;
      EXPECT_FALSE(widget->toolTip().isEmpty()) << form->Name() << " " << control->Name() << " tells nothing";
      EXPECT_EQ(widget->accessibleDescription(), widget->whatsThis());
    }
  }
}

TEST_F(Bound, FieldIsExplainedByItsTipByShiftF1AndToAssistants) {
  const std::string words = "Speed & direction of a motor that is a little longer than one line.";
  form.text.SetToolTip(words);
  window.text->setFocus();
  QTest::keyClick(window.text, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(window.text->accessibleDescription().toStdString(), words);
  EXPECT_EQ(window.text->toolTip(),
            "<qt>Speed &amp; direction of a motor that is a little longer than one line.</qt>");
  const QWidgetList shown = QApplication::topLevelWidgets();
  EXPECT_TRUE(std::ranges::any_of(shown, [](const QWidget* w) { return w->inherits("QWhatsThat"); }));
  QWhatsThis::hideText();
}

TEST(Binder, MainWindowShowsItsFormAndTellsItWhatTheUserDoes) {
  HeadlessDesktop desktop;
  MainScreen screen(desktop);
  const std::unique_ptr<QWidget> window = BuildWindow("MainForm");
  const Binder binder(screen, *window);
  screen.Show();
  std::string log;
  screen.Motor.Clicked.Set([&] { log += screen.Motor.Picture() + " "; });
  screen.HSled.Clicked.Set([&] { log += "spot "; });
  screen.MenuAbout.Clicked.Set([&] { log += screen.FocusedControl()->Name() + " "; });
  screen.Summary.DoubleClicked.Set([&](int row) { log += "grid" + std::to_string(row) + " "; });
  screen.CommList.Clicked.Set([&] { log += "port" + std::to_string(screen.CommList.ListIndex()) + " "; });
  auto* const motor = window->findChild<QWidget*>("Motor");
  QTest::mousePress(motor, Qt::LeftButton);
  log += screen.Motor.Picture() + " ";
  QTest::mouseRelease(motor, Qt::LeftButton);
  window->findChild<QAbstractButton*>("HSled")->click();
  window->findChild<QAction*>("MenuAbout")->trigger();
  auto* const grid = window->findChild<widgets::SummaryGrid*>("Summary");
  emit grid->rowDoubleClicked(2);
  screen.CommList.AddItem("COM1");
  screen.CommList.AddItem("COM2");
  screen.CommList.SetItemToolTip(1, "/dev/ttyS0");
  auto* const ports = window->findChild<QComboBox*>("CommList");
  QTest::keyClick(ports, Qt::Key_End);
  EXPECT_EQ(log, "MotorDown MotorUp spot HSled grid2 port1 ");

  screen.Motor.SetPictures("EncoderUp", "EncoderDown");
  EXPECT_EQ(window->findChild<widgets::ImageButton*>("Motor")->picture(), "EncoderUp");
  screen.MotionDesc.SetCaption("<b>&& x");
  screen.ProgBar.SetFloodPercent(40);
  screen.MotorLine1.SetBorderColor(0x0000FF);
  screen.Summary.SetText(1, 1, "cell");
  screen.MenuExit.SetEnabled(false);
  EXPECT_EQ(ports->toolTip(), "/dev/ttyS0");
  EXPECT_EQ(window->findChild<QLabel*>("MotionDesc")->text(), "<b>& x");
  EXPECT_EQ(window->findChild<widgets::PercentPanel*>("ProgBar")->value(), 40);
  EXPECT_EQ(window->findChild<widgets::ConnectorLine*>("MotorLine1")->colour(), QColor(Qt::red));
  EXPECT_EQ(grid->item(1, 1)->text(), "cell");
  EXPECT_FALSE(window->findChild<QAction*>("MenuExit")->isEnabled());
}

TEST_F(Bound, UsersActionsReachTheControlsOnce) {
  std::string log;
  const auto note = [&log](const char* name, Event<>& event, const std::function<int()>& value) {
    event.Set([&log, name, value] { log += name + std::to_string(value()) + " "; });
  };
  note("text", form.text.Change, [this] { return std::stoi(form.text.Text()); });
  note("list", form.list.Clicked, [this] { return form.list.ListIndex(); });
  note("check", form.check.Clicked, [this] { return form.check.Value(); });
  note("optA", form.optA.Clicked, [this] { return window.optA->isChecked() && !window.optB->isChecked(); });
  note("optB", form.optB.Clicked, [this] { return form.optB.Value(); });
  note("optC", form.optC.Clicked, [this] { return form.optC.Value(); });
  note("slider", form.slider.Change, [this] { return form.slider.Value(); });
  note("button", form.button.Clicked, [this] { return form.FocusedControl() == &form.button; });
  const QPoint second = window.list->visualItemRect(window.list->item(1)).center();
  QTest::keyClicks(window.text, "12");
  QKeyEvent missedMnemonic(QEvent::KeyPress, Qt::Key_U, Qt::AltModifier, "u");
  QApplication::sendEvent(window.text, &missedMnemonic);
  QTest::mouseClick(window.list->viewport(), Qt::LeftButton, {}, second);
  window.check->click();
  window.check->click();
  window.optB->click();
  window.optB->click();
  QTest::keyClick(window.optB, Qt::Key_Down);  // stays in its group
  QTest::keyClick(window.optB, Qt::Key_Up);
  QTest::keyClick(window.slider, Qt::Key_PageUp);
  QTest::keyClick(window.button, Qt::Key_Space);
  EXPECT_EQ(log, "text1 text12 list1 check1 check0 optB1 optA1 slider30 button1 ");
}

TEST_F(Bound, ChangesOfControlsAreShownAndDoNotComeBack) {
  EXPECT_EQ(window.button->text(), "Go && stop");
  form.slider.Scrolled.Set([] { FAIL() << "nobody has scrolled"; });
  form.list.SetListIndex(1);
  form.list.SetListIndex(-1);
  form.check.SetValue(true);
  form.optA.SetValue(true);
  form.optA.SetValue(false);
  form.slider.SetValue(500);
  EXPECT_EQ(window.slider->value(), 200);
  form.slider.SetRange({-128, 128, 1, 10, 32}, -100);
  EXPECT_EQ(window.slider->value(), -100);
  EXPECT_EQ(window.slider->pageStep(), 10);
  form.slider.SetRange({-200, 128, 1, 10, 32});
  EXPECT_EQ(window.slider->minimum(), -200);
  form.lamps[1].SetLight(Lamp::State::Orange);
  EXPECT_EQ(window.lamps[1]->accessibleDescription(), "orange");
  EXPECT_EQ(window.lamps[0]->accessibleDescription(), "off");
  form.button.SetEnabled(false);
  form.optB.SetVisible(false);
  EXPECT_TRUE(window.list->selectedItems().isEmpty());
  EXPECT_TRUE(window.check->isChecked());
  EXPECT_FALSE(window.optA->isChecked());
  EXPECT_FALSE(window.button->isEnabled());
  EXPECT_TRUE(window.optB->isHidden());
}

TEST_F(Bound, TypingInTheMiddleLeavesTheCursorUnlessTheHandlerChangesTheText) {
  form.text.SetText("1\u00e95");
  window.check->setFocus();
  QTest::mouseClick(window.text, Qt::LeftButton);
  EXPECT_EQ(window.text->selectedText(), "1\u00e95") << "entering selects all";
  window.text->setCursorPosition(2);
  QTest::keyClick(window.text, Qt::Key_2);
  EXPECT_EQ(form.text.Text(), "1\u00e925");
  EXPECT_EQ(window.text->cursorPosition(), 3);
  form.text.Change.Set([this] { form.text.SetText("9"); });
  QTest::keyClick(window.text, Qt::Key_7);
  EXPECT_EQ(window.text->text(), "9");
}

TEST_F(Bound, LongListOpensAtItsSelectionFindsTypedRowsAndIsFilledOnce) {
  std::vector<std::string> rows;
  for (int row = 0; row < 10'000; ++row) rows.push_back(std::to_string(row));
  window.hide();
  form.list.SetItems(rows);
  form.list.SetListIndex(9000);
  window.show();
  QCoreApplication::processEvents();
  const QListWidgetItem* const filled = window.list->item(9000);
  EXPECT_TRUE(window.list->viewport()->rect().contains(window.list->visualItemRect(filled)));
  std::string log;
  form.list.Clicked.Set([&] { log += form.list.Text() + " "; });
  QTest::keyClicks(window.list, "705");
  EXPECT_EQ(log, "7 70 705 ");
  EXPECT_EQ(window.list->item(9000), filled);
}

TEST_F(Bound, FocusTravelsBothWaysAndTheWheelMovesAFieldThatHasItAndThePageOtherwise) {
  EXPECT_EQ(form.FocusedControl(), &form.text) << "the first field of a new window";
  std::string log;
  form.text.LostFocus.Set([&] { log += "lost "; });
  form.text.GotFocus.Set([&] { log += "got "; });
  window.check->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(log, "lost ");
  form.text.Focus();
  EXPECT_TRUE(window.text->hasFocus());
  EXPECT_EQ(log, "lost got ");
  window.check->setFocus(Qt::PopupFocusReason);
  EXPECT_EQ(form.FocusedControl(), &form.text);
  QScrollArea page;
  page.setWidget(&window);
  page.resize(300, window.sizeHint().height() - 5);
  page.show();
  window.show();
  QCoreApplication::processEvents();
  const auto turn = [this](int steps) {
    QWheelEvent wheel({3, 3}, {3, 3}, {}, {0, 120 * steps}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(window.slider, &wheel);
    return form.slider.Value();
  };
  EXPECT_EQ(turn(1), 10);
  turn(-1);
  EXPECT_GT(page.verticalScrollBar()->value(), 0);
  window.slider->setFocus();
  EXPECT_GT(turn(1), 10);
  page.takeWidget()->setParent(nullptr);
}

TEST(SummaryGrid, ShowsMergedCellsOfTheSameTextAsOneAndOpensNoDivider) {
  widgets::SummaryGrid grid;
  std::vector<int> picked;
  QObject::connect(&grid, &widgets::SummaryGrid::rowDoubleClicked,
                   [&picked](int row) { picked.push_back(row); });
  grid.resize(300, 200);
  grid.setContent({{{{"Motor:", {}}, {"Motor:", {}}}, true, 0},
                   {{{" ", "DividerGradient"}, {" ", "DividerGradient"}}, true, 100},
                   {{{"left", {}}, {"right", {}}}, true, 480}},
                  {1950, 1950});
  grid.show();
  for (const auto& [row, span] : {std::pair(0, 2), {1, 2}, {2, 1}}) {
    EXPECT_EQ(grid.columnSpan(row, 0), span) << "row " << row;
    const QPoint spot = grid.visualItemRect(grid.item(row, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, spot);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, spot);
  }
  EXPECT_EQ(picked, (std::vector{0, 2}));
}

}  // namespace
}  // namespace kavr6

#include "adapters/qt/qt_desktop.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <chrono>
#include <ctime>

#include <gtest/gtest.h>

#include "adapters/qt/entry.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

std::unique_ptr<QWidget> BuildTestWindow(const std::string& formName) {
  if (formName == "NoDesign") return nullptr;
  auto window = std::make_unique<QDialog>();
  auto* const column = new QVBoxLayout(window.get());
  for (const char* name : {"OK", "Cancel"}) {
    auto* const button = new QPushButton(name);
    button->setObjectName(name);
    column->addWidget(button);
  }
  auto* const field = new QLineEdit;
  field->setObjectName("field");
  column->addWidget(field);
  window->resize(400, 200);
  return window;
}

struct TestForm : Form {
  explicit TestForm(Desktop& desktop, const std::string& name = "TestForm") : Form(desktop, name) {
    OK.Clicked.Set([this] { log += "OK ", Hide(); });
    Cancel.Clicked.Set([this] { log += "Cancel ", Hide(); });
    field.LostFocus.Set([this] { log += "left "; });
    Activate.Set([this] { log += "front "; });
    Deactivate.Set([this] { log += "behind "; });
  }
  bool KeyPressed(char character) override { return character == 20 || character == 'x'; }
  bool MayClose() override { return mayClose; }
  Button OK{*this, "OK", "OK", Button::Role::Default};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};
  TextBox field{*this, "field"};
  std::string log;
  bool mayClose = true;
};

struct Ended {
  int code;
};

/// Ends by an exception that the test, at the bottom of the stack, takes.
struct EndingDesktop : QtDesktop {
  EndingDesktop() : QtDesktop(BuildTestWindow) {}
  [[noreturn]] void EndProgram(int code) override { throw Ended{code}; }
};

class QtDesktopTest : public testing::Test {
 protected:
  /// Does `act` with the box that is on the screen by then.
  void WithBox(const std::function<void(QMessageBox&)>& act) {
    desktop.Post([act] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      act(*box);
    });
  }
  void Key(const Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(desktop.WindowOf(form)->windowHandle(), key, modifiers);
  }

  EndingDesktop desktop;
};

TEST_F(QtDesktopTest, TasksRunInOrderOfTimeAndEntryAtAnyDepth) {
  std::string log;
  desktop.CallAfter(0.004, [&] { log += "late "; });
  desktop.CallAfter(0.002, [&] { log += "soon "; });
  const auto forgotten = desktop.CallAfter(0.001, [&] { log += "never "; });
  desktop.Cancel(forgotten);
  desktop.Post([&] {
    log += "a( ";
    desktop.PumpEventsUntil([&] { return log.ends_with("soon "); }, 1.0);
    log += ")a ";
  });
  desktop.Post([&] {
    log += "b( ";
    desktop.PumpEvents();
    log += ")b ";
  });
  desktop.Post([&] { log += "c "; });
  EXPECT_TRUE(desktop.PumpEventsUntil([&] { return log.find("late") != std::string::npos; }, 1.0));
  EXPECT_EQ(log, "a( b( c )b soon )a late ");
}

TEST_F(QtDesktopTest, PumpRunsWhatIsWaitingButNotForEverWhatKeepsComing) {
  int waiting = 0;
  int endless = 0;
  for (int i = 0; i < 50; ++i) desktop.Post([&] { ++waiting; });
  const std::function<void()> again = [&] { ++endless, desktop.Post([&again] { again(); }); };
  again();
  desktop.PumpEvents();
  EXPECT_EQ(waiting, 50);
  EXPECT_LT(endless, 100);
}

TEST_F(QtDesktopTest, WaitEndsAtItsLimitWithoutUsingTheProcessor) {
  bool asked = false;
  EXPECT_TRUE(desktop.PumpEventsUntil([&] { return asked = true; }, 0.0));
  EXPECT_TRUE(asked);
  const double start = desktop.Now();
  const std::clock_t used = std::clock();
  EXPECT_FALSE(desktop.PumpEventsUntil([] { return false; }, 0.2));
  const double processor = static_cast<double>(std::clock() - used) / CLOCKS_PER_SEC;
  EXPECT_GE(desktop.Now() - start, 0.2);
  EXPECT_LT(desktop.Now() - start, 0.3);
  EXPECT_LT(processor, 0.05);
}

TEST_F(QtDesktopTest, BoxShowsItsTextAsItStandsAndAnswersByKeyOrByClosing) {
  struct Row {
    BoxButtons buttons;
    Qt::Key key;  ///< 0: the box is closed by its frame
    BoxAnswer answer;
  };
  constexpr Qt::Key closed{};
  for (const Row& row :
       {Row{BoxButtons::Ok, Qt::Key_Return, BoxAnswer::Ok}, Row{BoxButtons::Ok, closed, BoxAnswer::Ok},
        Row{BoxButtons::OkCancel, Qt::Key_Return, BoxAnswer::Ok},
        Row{BoxButtons::OkCancel, Qt::Key_Escape, BoxAnswer::Cancel},
        Row{BoxButtons::OkCancel, closed, BoxAnswer::Cancel},
        Row{BoxButtons::YesNo, Qt::Key_Return, BoxAnswer::Yes},
        Row{BoxButtons::YesNo, Qt::Key_Escape, BoxAnswer::No},
        Row{BoxButtons::YesNo, closed, BoxAnswer::No}}) {
    WithBox([&](QMessageBox& box) {
      EXPECT_EQ(box.text(), "a  <b>&c");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), row.key == closed ? "The Title" : "Open");
      if (row.key == closed) {
        box.close();
      } else {
        QTest::keyClick(&box, row.key);
      }
    });
    EXPECT_EQ(
        desktop.Ask({.text = "a  <b>&c", .title = row.key == closed ? "" : "Open", .buttons = row.buttons}),
        row.answer);
  }
}

TEST_F(QtDesktopTest, UnhandledErrorIsReportedOnceAndEndsTheProgram) {
  struct Row {
    Scheduler::Task work;
    QString text;
  };
  TestForm undesigned(desktop, "NoDesign");
  for (const Row& row :
       {Row{[] { RaiseOverflow(); }, "Run-time error '6':\n\nOverflow"},
        Row{[&] { undesigned.Show(); }, "Internal error:\n\nThe window NoDesign has no design."}}) {
    int boxes = 0;
    WithBox([&](QMessageBox& box) {
      ++boxes;
      EXPECT_EQ(box.text(), row.text);
      box.accept();
    });
    try {
      EnterLogic(desktop, row.work);
      ADD_FAILURE() << "goes on";
    } catch (const Ended& ended) {
      EXPECT_EQ(ended.code, 1);
    }
    EXPECT_EQ(boxes, 1);
  }
}

TEST_F(QtDesktopTest, EndOfTheProgramPutsThingsAwayAndSkipsDestructors) {
  EXPECT_EXIT(
      {
        struct Loud {
          ~Loud() { std::fputs("destroyed", stderr); }
        };
        static const Loud loud;
        QtDesktop ending(BuildTestWindow);
        ending.AtEnd([] { std::fputs("put away", stderr); });
        ending.EndProgram(3);
      },
      testing::ExitedWithCode(3), "^put away$");
}

TEST_F(QtDesktopTest, KeysAndCloseRequestOfAWindow) {
  TestForm form(desktop);
  form.Show();
  QWidget& window = *desktop.WindowOf(form);
  ASSERT_TRUE(window.isVisible());
  form.field.Focus();
  Key(form, Qt::Key_T, Qt::ControlModifier);
  Key(form, Qt::Key_X);
  Key(form, Qt::Key_Y);
  EXPECT_EQ(form.field.Text(), "y");
  Key(form, Qt::Key_Return);
  EXPECT_EQ(form.log, "front left OK behind ");
  EXPECT_FALSE(window.isVisible());
  form.Show();
  Key(form, Qt::Key_Escape);
  EXPECT_EQ(form.log, "front left OK behind front Cancel behind ");
  form.Show();
  form.mayClose = false;
  window.close();
  EXPECT_TRUE(window.isVisible());
  form.mayClose = true;
  window.close();
  EXPECT_FALSE(form.Visible() || window.isVisible());
}

TEST_F(QtDesktopTest, ModalWindowReturnsWhenHiddenAndSwitchingOfTheUserIsTold) {
  TestForm below(desktop, "Below");
  TestForm above(desktop, "Above");
  below.Show();
  desktop.Post([&] { Key(above, Qt::Key_Escape); });
  above.ShowModal();
  EXPECT_EQ(above.log, "front Cancel behind ");
  above.Show();
  EXPECT_EQ(desktop.ActiveFormName(), "Above");
  desktop.WindowOf(below)->activateWindow();
  desktop.PumpEvents();
  EXPECT_EQ(desktop.ActiveFormName(), "Below");
  // A box is no window of the program.
  below.log.clear();
  WithBox([](QMessageBox& box) { box.accept(); });
  desktop.Ask({.text = "x"});
  EXPECT_EQ(below.log, "");
}

TEST_F(QtDesktopTest, PlaceAndSizeAgreeWithTheWindow) {
  TestForm designed(desktop, "Designed");
  designed.Move(1500, 1500);
  designed.Show();
  QWidget& window = *desktop.WindowOf(designed);
  // The design is 400 by 200 pixels; the form was to stand centred at 1500 + 6000 / 2, 1500 + 4500 / 2.
  EXPECT_EQ(window.geometry().size(), QSize(400, 200));
  EXPECT_EQ(designed.Width(), 6000);
  EXPECT_EQ(designed.Height(), 3000);
  EXPECT_EQ(designed.Top(), 2250);
  window.resize(420, 260);
  window.move(30, 40);
  EXPECT_EQ(designed.Width(), 420 * 15);
  EXPECT_EQ(designed.Top(), 40 * 15);
  designed.SetCaption("Here");
  designed.SetMinSize(9000, 0);
  EXPECT_EQ(window.width(), 600);
  EXPECT_EQ(window.minimumWidth(), 600);
  EXPECT_EQ(window.windowTitle(), "Here");
  EXPECT_EQ(desktop.ScreenSize().width, QGuiApplication::primaryScreen()->size().width() * 15);
  EXPECT_EQ(desktop.Version().revision, 7);
}

}  // namespace
}  // namespace kavr6

#include "adapters/qt/windows/qt_desktop.h"

#include <QSessionManager>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/entry.h"
#include "adapters/qt/windows/session_end.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

std::unique_ptr<QWidget> BuildTestWindow(const std::string& formName) {
  if (formName == "NoDesign") return nullptr;
  auto window = std::make_unique<QDialog>();
  const std::pair<const char*, QWidget*> parts[] = {
      {"OK", new QPushButton},   {"Cancel", new QPushButton},  {"field", new QLineEdit},
      {"list", new QListWidget}, {"combo", new QComboBox},     {"slider", new QSlider},
      {"check", new QCheckBox},  {"option", new QRadioButton}, {"Help", new QPushButton}};
  for (const auto& [name, widget] : parts) {
    widget->setObjectName(name);
    widget->setParent(window.get());
  }
  window->resize(400, 200);
  return window;
}

struct TestForm : Form {
  explicit TestForm(Desktop& desktop, const std::string& name = "TestForm") : Form(desktop, name) {
    list.SetItems({"a", "b"});
    combo.SetItems({"a", "b"});
    OK.Clicked.Set([this] { log += "OK ", Hide(); });
    Cancel.Clicked.Set([this] { log += "Cancel ", Hide(); });
    field.LostFocus.Set([this] { log += "left "; });
    Activate.Set([this] { log += "front "; });
    Deactivate.Set([this] { log += "behind "; });
  }
  bool KeyPressed(char character) override { return character == 20 || character == 'x'; }
  bool MayClose() override { return mayClose; }
  void Load() override { log += "load "; }
  bool TakesFiles(const std::vector<std::string>& files) const override {
    return files == std::vector{PathFromQt("/a/b.cnf")};
  }
  void FilesDropped(const std::vector<std::string>& files) override { log += files[0] + " "; }
  Button OK{*this, "OK", "OK", Button::Role::Default};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};
  TextBox field{*this, "field"};
  OptionGroup group;
  ListBox list{*this, "list"};
  ListBox combo{*this, "combo"};
  Slider slider{*this, "slider", {}};
  CheckBox check{*this, "check"};
  OptionButton option{*this, "option", group};
  Button Help{*this, "Help"};
  std::string log;
  bool mayClose = true;
};

/// Ends by an exception that the test, at the bottom of the stack, takes.
struct EndingDesktop : QtDesktop {
  struct Ended {};
  EndingDesktop() : QtDesktop(BuildTestWindow) {}
  [[noreturn]] void EndProcess(int) override { throw Ended(); }
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

TEST_F(QtDesktopTest, ExpectedFormIsBuiltInTheNextWaitAndTakesWhatItsControlsHoldByThen) {
  TestForm form(desktop);
  auto gone = std::make_unique<TestForm>(desktop);
  desktop.BuildAhead(form);
  desktop.BuildAhead(*gone);
  gone.reset();
  EXPECT_EQ(desktop.WindowOf(form), nullptr);
  desktop.PumpEvents();
  QWidget* const window = desktop.WindowOf(form);
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(form.log, "");
  form.field.SetText("later");
  form.Resize(9000, 6000);  // 15 twips to a pixel
  form.Show();
  EXPECT_EQ(desktop.WindowOf(form), window);
  EXPECT_EQ(window->size(), QSize(600, 400));
  EXPECT_EQ(window->findChild<QLineEdit*>("field")->text(), "later");
}

TEST_F(QtDesktopTest, BoxShowsItsTextAsItStandsAndAnswersByKeyOrByClosing) {
  constexpr Qt::Key closed{};  // by its frame
  constexpr auto kText = "a  <b>&c";
  const std::tuple<MessageBox, Qt::Key, BoxAnswer> cases[] = {
      {{.text = kText, .buttons = BoxButtons::Ok}, closed, BoxAnswer::Ok},
      {{.text = kText, .buttons = BoxButtons::OkCancel}, Qt::Key_Return, BoxAnswer::Ok},
      {{.text = kText, .buttons = BoxButtons::OkCancel, .careful = true}, Qt::Key_Return, BoxAnswer::Cancel},
      {{.text = kText, .buttons = BoxButtons::YesNo}, Qt::Key_Return, BoxAnswer::Yes},
      {{.text = kText, .buttons = BoxButtons::YesNo}, closed, BoxAnswer::No},
      {{.text = kText, .buttons = BoxButtons::YesNo, .escapeAccepts = true}, Qt::Key_Escape, BoxAnswer::Yes}};
  for (const auto& [asked, key, answer] : cases) {
    WithBox([press = key](QMessageBox& box) {
      EXPECT_EQ(box.text(), "a  <b>&c");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), "The Title");
      QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
      EXPECT_EQ(QGuiApplication::clipboard()->text(), box.text());
      auto* const words = box.findChild<QLabel*>("qt_msgbox_label");
      words->setSelection(0, 1);
      QTest::keyClick(words, Qt::Key_C, Qt::ControlModifier);
      EXPECT_EQ(QGuiApplication::clipboard()->text(), "a");
      if (press == closed) {
        box.close();
      } else {
        QTest::keyClick(&box, press);
      }
    });
    EXPECT_EQ(desktop.Ask(asked), answer);
  }
}

TEST_F(QtDesktopTest, EndOfTheSessionIsPutToTheLogicAndItsOrderEndsTheProgram) {
  const SessionEnd session(desktop);
  auto* const manager = qApp->findChild<QSessionManager*>();
  ASSERT_NE(manager, nullptr);
  emit qApp->commitDataRequest(*manager);  // while nobody has anything to lose
  std::string heard;
  desktop.MaySessionEnd = [&](const std::function<bool()>& mayAsk) {
    heard += mayAsk() ? "may ask " : "asked ";  // there is no system here that would give leave
    return false;
  };
  emit qApp->commitDataRequest(*manager);
  EXPECT_EQ(heard, "asked ");
  TestForm form(desktop);
  form.Show();
  QEvent order(QEvent::Quit);
  EXPECT_THROW(QCoreApplication::sendEvent(qApp, &order), EndingDesktop::Ended);
  EXPECT_TRUE(form.Visible());  // its close request was not needed
}

TEST_F(QtDesktopTest, UnhandledErrorIsReportedAndEndsTheProgram) {
  TestForm undesigned(desktop, "NoDesign");
  const std::pair<Scheduler::Task, QString> cases[] = {
      {[] { RaiseOverflow(); }, "Run-time error '6':\n\nOverflow"},
      {[&] { undesigned.Show(); }, "Internal error:\n\nThe window NoDesign has no design."}};
  for (const auto& c : cases) {
    WithBox([&](QMessageBox& box) {
      EXPECT_EQ(box.text(), c.second);
      box.accept();
    });
    EXPECT_THROW(EnterLogic(desktop, c.first), EndingDesktop::Ended);
  }
}

TEST_F(QtDesktopTest, EndOfTheProgramPutsThingsAway) {
  QtDesktop ending(BuildTestWindow);
  ending.AtEnd([] { std::fputs("port", stderr); });
  ending.AtEnd([] { RaiseOverflow(); });
  ending.AtEnd([] { std::fputs("drive, ", stderr); });
  EXPECT_EXIT(ending.EndProgram(3), testing::ExitedWithCode(3),
              "^drive, At the program's end: Overflow\nport$");
  EXPECT_EXIT(std::exit(4), testing::ExitedWithCode(4), "^drive, .*\nport$")
      << "as the toolkit does when the window system has gone";
}

TEST_F(QtDesktopTest, WindowShownModallyOnceMoreComesOutOfTheShadowOfWhatOpenedAboveIt) {
  TestForm fault(desktop, "Fault");
  TestForm above(desktop, "Above");
  desktop.Post([&] {
    desktop.Post([&] {
      desktop.Post([&] {
        EXPECT_EQ(QApplication::activeModalWidget(), desktop.WindowOf(fault));
        Key(fault, Qt::Key_Escape);
        Key(above, Qt::Key_Escape);
      });
      fault.ShowModal();
    });
    above.ShowModal();
  });
  fault.ShowModal();
  EXPECT_EQ(fault.log, "load front behind front Cancel behind ");
  EXPECT_EQ(above.log, "load front behind front Cancel behind ");
}

TEST_F(QtDesktopTest, KeysAndCloseRequestOfAWindow) {
  TestForm form(desktop);
  form.Show();
  QWidget& window = *desktop.WindowOf(form);
  form.field.Focus();
  Key(form, Qt::Key_T, Qt::ControlModifier);
  Key(form, Qt::Key_X);
  Key(form, Qt::Key_Y);
  EXPECT_EQ(form.field.Text(), "y");
  Key(form, Qt::Key_Return);
  EXPECT_EQ(form.log, "load front left OK behind ");
  EXPECT_FALSE(window.isVisible());
  form.Show();
  form.mayClose = false;
  window.close();
  EXPECT_TRUE(window.isVisible());
  form.mayClose = true;
  window.close();
  EXPECT_FALSE(form.Visible() || window.isVisible());
}

TEST_F(QtDesktopTest, EnterEscAndHelpKeyWorkWhereverTheFocusIs) {
  TestForm form(desktop);
  std::string pressed;
  for (Button* button : {&form.OK, &form.Cancel, &form.Help})
    button->Clicked.Replace([&pressed, button] { pressed += button->Name() + " "; });
  desktop.HelpWanted = [&pressed](const std::string& where) { pressed += "on " + where + " "; };
  form.Show();
  for (Control* focused : std::initializer_list<Control*>{&form.field, &form.list, &form.combo, &form.slider,
                                                          &form.check, &form.option, &form.Help}) {
    pressed.clear();
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Return, Qt::Key_Escape, Qt::Key_F1}) {
      focused->Focus();
      Key(form, key);
    }
    EXPECT_EQ(pressed, focused == &form.Help ? "Help Help Cancel on TestForm " : "OK OK Cancel on TestForm ")
        << focused->Name();
  }
}

TEST_F(QtDesktopTest, BoxAndWindowThatOpenAboveAFileDialogCanBeUsed) {
  TestForm below(desktop, "Below");
  TestForm above(desktop, "Above");
  below.Show();
  desktop.Post([&] {
    QWidget* const fileDialog = QApplication::activeModalWidget();
    WithBox([](QMessageBox& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Return); });
    EXPECT_EQ(desktop.Ask({.text = "x"}), BoxAnswer::Ok);
    above.Show();
    above.field.Focus();
    Key(above, Qt::Key_Y);
    EXPECT_EQ(above.field.Text(), "y");
    fileDialog->close();
  });
  EXPECT_EQ(desktop.ChooseFile({FileDialog::Purpose::Save, "All|*", "", ""}), "");
  EXPECT_TRUE(desktop.WindowOf(above)->isVisible());
  below.field.Focus();
  Key(below, Qt::Key_Y);
  EXPECT_EQ(below.field.Text(), "y")
      << "the window above blocks the others only while the dialog would block it";
}

struct CompanionForm : TestForm {
  explicit CompanionForm(Desktop& desktop) : TestForm(desktop, "Companion") { BeCompanion(); }
};

TEST_F(QtDesktopTest, CompanionAndWhateverIsModalCanBeUsedBesideEachOther) {
  TestForm below(desktop, "Below");
  TestForm modal(desktop, "Modal");
  CompanionForm companion(desktop);
  const auto typed = [&](TestForm& form) {
    form.field.SetText("");
    form.field.Focus();
    Key(form, Qt::Key_Y);
    return form.field.Text() == "y";
  };
  std::string usable;
  const auto note = [&](const char* when) {
    usable += std::string(when) + ":";
    for (TestForm* form : std::initializer_list<TestForm*>{&below, &modal, &companion})
      usable += typed(*form) ? " " + form->Name() : "";
    usable += "; ";
  };
  desktop.HelpWanted = [&](const std::string& where) { usable += where + "; ", companion.Show(); };
  below.Show();
  companion.Show();
  desktop.Post([&] {
    note("beside the modal window");
    WithBox([&](QMessageBox& box) {
      note("beside a box above it");
      companion.Hide();
      QTest::keyClick(&box, Qt::Key_F1);
      note("shown by the box's F1");
      desktop.WindowOf(companion)->activateWindow();
      WithBox([&](QMessageBox& inner) { inner.close(); });
      desktop.Ask({.text = "over the companion"});
      box.close();
    });
    desktop.Ask({.text = "x"});
    note("the box is gone");
    modal.Hide();
  });
  modal.ShowModal();
  note("nothing is modal");
  EXPECT_EQ(usable,
            "beside the modal window: Modal Companion; beside a box above it: Companion; message box; "
            "shown by the box's F1: Companion; the box is gone: Modal Companion; "
            "nothing is modal: Below Companion; ");
}

TEST_F(QtDesktopTest, FileThatIsTakenIsCopiedAndHandedOverWhenTheDropIsOver) {
  TestForm form(desktop);
  form.Show();
  form.log.clear();
  const Qt::DropActions all = Qt::MoveAction | Qt::CopyAction;
  const std::tuple<const char*, Qt::DropActions, bool> cases[] = {{"file:///a/b.cnf", all, true},
                                                                  {"file:///a/b.cnf", Qt::MoveAction, false},
                                                                  {"file:///a/b.txt", all, false},
                                                                  {"http://a/b.cnf", all, false}};
  for (const auto& [address, offered, taken] : cases) {
    QMimeData dragged;
    dragged.setUrls({QUrl(address)});
    QDragEnterEvent enter(QPoint(5, 5), offered, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(desktop.WindowOf(form), &enter);
    QDropEvent drop(QPointF(5, 5), offered, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(desktop.WindowOf(form), &drop);
    EXPECT_EQ(enter.isAccepted(), taken) << address;
    EXPECT_EQ(drop.isAccepted() && drop.dropAction() == Qt::CopyAction, taken) << address;
    EXPECT_EQ(form.log, "");
    desktop.PumpEvents();
    EXPECT_EQ(std::exchange(form.log, {}), taken ? PathFromQt("/a/b.cnf") + " " : "");
  }
}

TEST_F(QtDesktopTest, AddressesOpenInTheSystemsPrograms) {
  QTextBrowser system;
  QDesktopServices::setUrlHandler("https", &system, "setSource");
  desktop.OpenOutside("https://a.example/b");
  EXPECT_EQ(system.source(), QUrl("https://a.example/b"));
  QDesktopServices::unsetUrlHandler("https");
}

TEST_F(QtDesktopTest, WindowsThatFollowEachOtherAndRefusedClicksComeOutAsOnAnyDesktop) {
  TestForm below(desktop, "Below");
  TestForm above(desktop, "Above");
  below.Show(), above.Show();
  desktop.PumpEventsUntil([] { return false; }, 0.05);
  EXPECT_EQ(below.log + above.log, "load front behind load front ");
  WithBox([&](QMessageBox& box) {
    above.OK.Click();  // as one that was on its way when the box opened
    box.accept();
  });
  desktop.Ask({.text = "x"});
  EXPECT_EQ(above.log, "load front ");
  below.OK.Click();
  EXPECT_EQ(below.log + above.log, "load front behind front OK behind load front behind front ");
}

TEST_F(QtDesktopTest, WindowOfAFormThatHasDiedGoesWithIt) {
  QPointer<QWidget> window;
  {
    TestForm form(desktop);
    form.Show();
    form.field.Focus();
    window = desktop.WindowOf(form);
    form.Hide();
  }
  EXPECT_EQ(window, nullptr);
  TestForm form(desktop);  // may stand where the dead one stood
  form.Show();
  Key(form, Qt::Key_Return);
  EXPECT_EQ(form.log, "load front OK behind ");
}

TEST_F(QtDesktopTest, PlaceAndSizeAgreeWithTheWindow) {
  TestForm designed(desktop, "Designed");
  designed.Move(1500, 1500, true);
  designed.Show();
  QWidget& window = *desktop.WindowOf(designed);
  // The design is 400 by 200 pixels; the form was to stand centred at 1500 + 6000 / 2, 1500 + 4500 / 2.
  EXPECT_EQ(designed.Top(), 2250);
  window.resize(420, 260);
  window.move(30, 40);
  EXPECT_EQ(designed.Width(), 420 * 15);
  designed.SetMinSize(9000, 0);
  EXPECT_EQ(window.width(), 600);
  EXPECT_EQ(desktop.ScreenSize().width, QGuiApplication::primaryScreen()->size().width() * 15);
  EXPECT_EQ(desktop.Version().revision, 7);
}

}  // namespace
}  // namespace kavr6

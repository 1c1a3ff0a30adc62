// What all dialogs have in common.
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/widgets/mark_button.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

struct DialogPages : SceneTest {
  void LookAt(Form& form) {
    window = BuildWindow(form.Name());
    binder.emplace(form, *window);
    Show();
  }
  void Show() {
    window->show();
    QTest::qWait(20);
  }
  QRect On(const QWidget& widget) const { return {widget.mapTo(window.get(), QPoint()), widget.size()}; }
  QPushButton* ButtonNamed(const char* name) const { return window->findChild<QPushButton*>(name); }

  std::unique_ptr<QWidget> window;
  std::optional<Binder> binder;
};

TEST_F(DialogPages, ButtonsStandAtTheBottomRightInOneOrder) {
  const QStringList order{"OK", "Quit", "Cancel", "Help"};
  int helps = 0;
  for (Form* form : scene.Forms()) {
    if (form->Name() == "MainForm" || form->Name() == "StartForm" || form->Name() == "HelpScreen") continue;
    LookAt(*form);
    const QPushButton* before = nullptr;
    for (const QString& name : order) {
      const auto* const button = window->findChild<QPushButton*>(name, Qt::FindDirectChildrenOnly);
      if (button == nullptr) continue;
      helps += name == "Help" ? 1 : 0;
      EXPECT_GT(On(*button).bottom(), window->height() - 3 * button->height()) << form->Name();
      EXPECT_TRUE(before == nullptr || On(*before).right() < On(*button).left()) << form->Name();
      before = button;
    }
    if (before == nullptr) continue;
    EXPECT_GT(On(*before).right(), window->width() - before->width()) << form->Name();
  }
  EXPECT_EQ(helps, 10);
}

TEST_F(DialogPages, FieldsOfAWindowStandBelowOneAnother) {
  LookAt(program.PulseDirSetup);
  const auto left = [this](const char* name) { return On(*window->findChild<QWidget*>(name)).left(); };
  EXPECT_EQ(left("SPR"), left("txtStepFilterFreq"));
  EXPECT_EQ(left("SPR"), left("txtNoiseFilter"));
  LookAt(program.VelocitySetup);
  EXPECT_EQ(left("txtSpeed"), left("txtAccel"));
  EXPECT_EQ(left("lblSpeedUnit"), left("lblAccelUnit"));
}

TEST_F(DialogPages, WindowIsAsHighAsWhatItShowsAndNoWiderThanItIsGoodFor) {
  VTLdialog& host = program.VTLSetup;
  const auto power = [&](int mode) {
    for (int row = 0; row < host.ListCM.Count(); ++row)
      if (host.ListCM.ItemData(row) == mode) host.ListCM.SetListIndex(row);
    QTest::qWait(20);
    return window->height();
  };
  host.ListCM.SetListIndex(host.ListCM.Count() - 1);
  LookAt(host);
  const int low = power(21);
  const int high = power(7);
  EXPECT_GT(high, low + ButtonNamed("OK")->height());
  EXPECT_EQ(power(21), low);
  EXPECT_LT(window->maximumHeight(), high * 3 / 2);
  EXPECT_LT(window->maximumWidth(), window->sizeHint().width() * 3 / 2);
}

TEST_F(DialogPages, HeadingFollowsTheCaptionWhereADialogHasTwo) {
  LookAt(program.VTLSetup);
  window->setWindowTitle("Wy Configuration");
  EXPECT_EQ(window->findChild<QLabel*>("dialogHeading")->text(), "Wy Configuration");
}

TEST_F(DialogPages, LargeDialogScrollsInASmallWindowAndKeepsItsButtons) {
  LookAt(program.IOSetup);
  window->resize(400, 300);
  QTest::qWait(20);
  EXPECT_LE(window->height(), 300);
  EXPECT_TRUE(window->rect().contains(On(*ButtonNamed("OK"))));
  EXPECT_GT(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(DialogPages, TextInSeveralLinesIsShownWithoutScrolling) {
  LookAt(program.Commands.BRcodes);
  for (const int width : {200, 290, 320}) {
    window->resize(width, 120);
    QTest::qWait(20);
    EXPECT_GT(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0) << width;
    window->resize(width, window->layout()->totalHeightForWidth(width));
    QTest::qWait(20);
    EXPECT_EQ(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0) << width;
  }
}

TEST_F(DialogPages, ArrowsGoAsTheEyeDoesAndPassWhatIsGreyed) {
  LookAt(program.ModeMenu);
  program.ModeMenu.ZuProgram.SetEnabled(false);
  const std::pair<Qt::Key, const char*> walk[] = {
      {Qt::Key_Right, "VelocityMode"}, {Qt::Key_Right, "VelocityMode"}, {Qt::Key_Down, "WyProgram"},
      {Qt::Key_Left, "VTLmode"},       {Qt::Key_Down, "HubProg"},       {Qt::Key_Up, "WyProgram"},
      {Qt::Key_Left, "VTLmode"},       {Qt::Key_Up, "PulseDirMode"}};
  ButtonNamed("PulseDirMode")->setFocus();
  for (const auto& [key, name] : walk) {
    QTest::keyClick(window->focusWidget(), key);
    EXPECT_EQ(window->focusWidget()->objectName(), name);
  }
}

TEST_F(DialogPages, MarkIsToldToAssistantsToo) {
  LookAt(program.ModeMenu);
  program.ModeMenu.VTLmode.SetMark("in use");
  EXPECT_EQ(ButtonNamed("VTLmode")->accessibleDescription(),
            "in use. A host computer sends commands over the serial line.");
  program.ModeMenu.VTLmode.SetMark("");
  EXPECT_EQ(ButtonNamed("VTLmode")->accessibleDescription(),
            "A host computer sends commands over the serial line.");
}

}  // namespace
}  // namespace kavr6

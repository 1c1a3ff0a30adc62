// What stands beside what in the windows of the alarms and in the lists of commands.
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

struct Places : SceneTest {
  void LookAt(Form& form) {
    window = BuildWindow(form.Name());
    binder.emplace(form, *window);
    window->show();
    QTest::qWait(1);
  }
  QPoint PlaceOf(const QWidget& widget) { return widget.mapTo(window.get(), widget.rect().center()); }
  const QWidget& Element(const char* array, int index) {
    return *window->findChild<QWidget*>(QString("%1_%2").arg(array).arg(index));
  }
  /// Of the labels of that array on the same line the nearest one to the right, 1, or to the left, -1.
  std::string Beside(const QWidget& widget, int side, const QString& array) {
    const QPoint place = PlaceOf(widget);
    std::string text;
    int nearest = window->width();
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      const QPoint away = PlaceOf(*label) - place;
      const int distance = away.x() * side;
      if (!label->objectName().startsWith(array + '_') || std::abs(away.y()) > 2) continue;
      if (distance < 0 || distance > nearest) continue;
      nearest = distance;
      text = label->text().toStdString();
    }
    return text;
  }

  std::unique_ptr<QWidget> window;
  std::optional<Binder> binder;
};

TEST_F(Places, LampOfAFaultIsBesideItsName) {
  LookAt(program.FaultPopup);
  for (int bit = 0; bit < ServoFault::kBits; ++bit)
    EXPECT_EQ(Beside(Element("RedSquare", bit), 1, "Label1"), program.FaultPopup.Label1[bit].Caption());
}

TEST_F(Places, LampOfTheHistoryIsInTheColumnOfItsCodeAndTheRowOfItsAlarm) {
  LookAt(program.LastAlarms);
  for (int lamp = 0; lamp < AlarmHistory::kSample; ++lamp) {
    const QPoint place = PlaceOf(Element("RedSquare", lamp));
    EXPECT_NEAR(place.y(), PlaceOf(Element("Label1", lamp % 16)).y(), 1) << lamp;
    EXPECT_NEAR(place.x(), PlaceOf(Element("AlarmNum", lamp / 16)).x(), 1) << lamp;
  }
}

TEST_F(Places, ButtonOfCodesIsOnTheLineOfItsCommand) {
  std::string commands;
  for (Form* form : std::initializer_list<Form*>{&program.Commands, &program.Commands.ServoCommands}) {
    LookAt(*form);
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>())
      if (button->text() == "Codes")
        commands += button->objectName().toStdString() + " " + Beside(*button, -1, "cmd") + ", ";
  }
  EXPECT_EQ(
      commands,
      "cmdLimitCodes DL, cmdIOcodes_0 FS, cmdMRcodes MR, cmdRScodes RS, cmdIOcodes_1 SH, cmdIOcodes_2 SO, "
      "cmdIOcodes_3 WI, cmdBRcodes BR, btnEF EF, cmdLimitCodes_0 AI, cmdLimitCodes_1 SI, "
      "cmdLimitCodes_2 BO, cmdControlModes CM, cmdLimitCodes_3 MO, cmdLimitCodes_4 AO, ");
}

}  // namespace
}  // namespace kavr6

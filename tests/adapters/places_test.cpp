// What stands beside what in the windows.
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "core/alarms.h"
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
  QRect On(const QString& name) {
    const auto* const widget = window->findChild<QWidget*>(name);
    return {widget->mapTo(window.get(), QPoint()), widget->size()};
  }
  QPoint PlaceOf(const QString& name) { return On(name).center(); }
  static QString Element(const char* array, int index) { return QString("%1_%2").arg(array).arg(index); }
  /// Of the labels of that array on the same line the nearest one to the right, 1, or to the left, -1.
  std::string Beside(const QString& name, int side, const QString& array) {
    const QPoint place = PlaceOf(name);
    std::string text;
    int nearest = window->width();
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      const QPoint away = PlaceOf(label->objectName()) - place;
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

TEST_F(Places, LampIsBesideTheNameOfItsBit) {
  ExecStatus& monitor = program.StatusMonitor;
  LookAt(program.FaultPopup);
  for (int bit = 0; bit < ServoFault::kBits; ++bit)
    EXPECT_EQ(Beside(Element("RedSquare", bit), 1, "Label1"), program.FaultPopup.Label1[bit].Caption());
  LookAt(monitor);
  for (int bit = 0; bit < 14; ++bit) {
    EXPECT_EQ(Beside(Element("AlarmLED", bit), 1, "lblStatusBit"),
              kAlarms[static_cast<std::size_t>(bit)].monitored);
    EXPECT_EQ(Beside(Element("StatusLED", bit), 1, "lblStatusBit"), monitor.lblStatusBit[bit].Caption());
  }
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
        commands += button->objectName().toStdString() + " " + Beside(button->objectName(), -1, "cmd") + ", ";
  }
  EXPECT_EQ(
      commands,
      "cmdLimitCodes DL, cmdIOcodes_0 FS, cmdMRcodes MR, cmdRScodes RS, cmdIOcodes_1 SH, cmdIOcodes_2 SO, "
      "cmdIOcodes_3 WI, cmdBRcodes BR, btnEF EF, cmdLimitCodes_0 AI, cmdLimitCodes_1 SI, "
      "cmdLimitCodes_2 BO, cmdControlModes CM, cmdLimitCodes_3 MO, cmdLimitCodes_4 AO, ");
}

TEST_F(Places, ASmallDriveHasItsTerminalsWhereALargeOneBegins) {
  LookAt(program.StatusMonitor);
  const auto connect = [this](int model) {
    scene.drive.SetIdentity(52, model, 'k');
    program.StatusMonitor.Show();
    QTest::qWait(1);
    program.StatusMonitor.OK.Click();
  };
  connect(43);
  const QPoint firstInput = PlaceOf("INlo_0");
  const QPoint firstOutput = PlaceOf("OUTlo_0");
  EXPECT_GT(PlaceOf("INlo_8").x(), firstInput.x());
  EXPECT_GT(PlaceOf("OUTlo_4").y(), PlaceOf("OUTlo_3").y());
  const QSize large = window->size();
  connect(41);
  EXPECT_EQ(PlaceOf("INlo_8").x(), firstInput.x());
  EXPECT_LT(PlaceOf("INlo_8").y(), PlaceOf("INlo_9").y());
  EXPECT_EQ(PlaceOf("OUTlo_4").x(), firstOutput.x());
  EXPECT_LT(PlaceOf("OUTlo_4").y(), PlaceOf("Frame3").y()) << "in the upper half of its frame";
  EXPECT_EQ(window->size(), large);
}

TEST_F(Places, LinesOfTheMainScreenReachFromTheButtonsToTheirPartsAtEverySize) {
  LookAt(main);
  for (const QSize size : {QSize(640, 480), QSize(1366, 700)}) {
    window->resize(size);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), size);
    for (const auto& [line, button, part] :
         {std::tuple("MotionLine", "Motion", "HSinout1"), {"CommLine", "CommList", "HSrs485"}}) {
      EXPECT_TRUE(On(line).intersects(On(button)) && On(line).intersects(On(part))) << line;
      EXPECT_FALSE(On(button).intersects(On(part))) << line;
    }
  }
}

}  // namespace
}  // namespace kavr6

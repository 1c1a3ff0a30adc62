// The status monitor's window: what stands beside what, figures that do not jump, a chart that does not toil.
#include <QTest>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/widgets/big_number.h"
#include "adapters/qt/windows/widgets/strip_chart.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

struct MonitorWindow : SceneTest {
  ExecStatus& monitor = program.StatusMonitor;
  std::unique_ptr<QWidget> window = BuildWindow("ExecStatus");
  Binder binder{monitor, *window};

  QPoint PlaceOf(const char* name) {
    const auto* const widget = window->findChild<QWidget*>(name);
    return widget->mapTo(window.get(), widget->rect().center());
  }
  void LookAt(int model) {
    scene.drive.SetIdentity(52, model, 'k');
    monitor.Show();
    window->show();
    QTest::qWait(1);
    monitor.OK.Click();
  }
};

TEST_F(MonitorWindow, EachLampStandsBesideTheNameOfItsBit) {
  const char* const alarms[] = {"motor stall",    "CCW Limit",    "CW Limit",      "over temp",
                                "excess regen",   "over voltage", "under voltage", "overcurrent",
                                "open phase",     "bad encoder",  "serial comm",   "flash memory",
                                "move while dis", "motor ohms"};
  LookAt(43);
  for (int bit = 0; bit < 14; ++bit) {
    const QByteArray lamp = QString("AlarmLED_%1").arg(bit).toLatin1();
    std::string beside;
    for (int i = 14; i < 28; ++i) {
      const QByteArray label = QString("lblStatusBit_%1").arg(i).toLatin1();
      if (std::abs(PlaceOf(label).y() - PlaceOf(lamp).y()) <= 1) beside += monitor.lblStatusBit[i].Caption();
    }
    EXPECT_EQ(beside, alarms[bit]);
    EXPECT_NEAR(PlaceOf(QString("StatusLED_%1").arg(bit).toLatin1()).y(),
                PlaceOf(QString("lblStatusBit_%1").arg(bit).toLatin1()).y(), 1);
  }
}

TEST_F(MonitorWindow, ASmallDriveHasItsTerminalsWhereALargeOneBegins) {
  LookAt(43);
  const QPoint firstInput = PlaceOf("INlo_0");
  const QPoint firstOutput = PlaceOf("OUTlo_0");
  EXPECT_GT(PlaceOf("INlo_8").x(), firstInput.x());
  EXPECT_GT(PlaceOf("OUTlo_4").y(), PlaceOf("OUTlo_3").y());
  const QSize large = window->size();
  LookAt(41);
  EXPECT_EQ(PlaceOf("INlo_8").x(), firstInput.x());
  EXPECT_LT(PlaceOf("INlo_8").y(), PlaceOf("INlo_9").y());
  EXPECT_EQ(PlaceOf("OUTlo_4").x(), firstOutput.x());
  EXPECT_LT(PlaceOf("OUTlo_4").y() - PlaceOf("Frame3").y(), 0) << "in the upper half of its frame";
  EXPECT_EQ(window->size(), large);
}

TEST(BigNumber, FiguresKeepTheirPlacesWhateverStandsBeforeThem) {
  widgets::BigNumber number;
  number.resize(number.sizeHint());
  const auto drawn = [&](const char* text) {
    number.setText(text);
    const QImage all = number.grab().toImage();
    return all.copy(all.width() * 3 / 4, 0, all.width() / 4, all.height());
  };
  const QImage before = drawn("  9.98");
  EXPECT_EQ(drawn("-11.98"), before);
  EXPECT_NE(drawn("  9.97"), before);
}

TEST(StripChart, DrawsOnceForWhatItIsGivenAndBreaksTheLineWhereNothingWasMeasured) {
  struct Counted : widgets::StripChart {
    int paints = 0;
    void paintEvent(QPaintEvent* event) override {
      ++paints;
      StripChart::paintEvent(event);
    }
  } chart;
  const auto show = [&](QVector<QPointF> values) {
    chart.setContent({{"speed", "rev/s", std::move(values)}}, 180.0, false);
    QTest::qWait(10);
    return chart.grab().toImage();
  };
  chart.resize(chart.sizeHint());
  chart.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&chart));
  const auto inkInTheMiddle = [](const QImage& image) {
    const int x = image.width() * 2 / 5;
    int changes = 0;
    for (int y = 1; y < image.height() * 3 / 4; ++y)
      changes += image.pixel(x, y) != image.pixel(x, y - 1) ? 1 : 0;
    return changes;
  };
  chart.paints = 0;
  const int empty = inkInTheMiddle(show({}));
  EXPECT_EQ(chart.paints, 2) << "on the screen, and for the picture";
  QTest::qWait(50);
  EXPECT_EQ(chart.paints, 2);
  EXPECT_EQ(inkInTheMiddle(show({{0, 1}, {1, 2}, {179, 2}, {180, 1}})), empty);
  QVector<QPointF> all;
  for (int second = 0; second <= 180; ++second) all.push_back({second * 1.0, second % 2 * 1.0});
  EXPECT_GT(inkInTheMiddle(show(all)), empty);
}

}  // namespace
}  // namespace kavr6

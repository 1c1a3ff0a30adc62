// The status monitor's own widgets: figures that do not jump, a chart that does not toil.
#include <QTest>

#include <gtest/gtest.h>

#include "adapters/qt/windows/widgets/big_number.h"
#include "adapters/qt/windows/widgets/strip_chart.h"

namespace kavr6 {
namespace {

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

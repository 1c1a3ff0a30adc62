#include <QTest>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "adapters/qt/forms.h"
#include "adapters/qt/widgets/artwork.h"
#include "adapters/qt/widgets/summary_grid.h"

namespace kavr6::widgets {
namespace {

TEST(Artwork, EveryButtonHasTwoPicturesThatDiffer) {
  const auto render = [](const QString& name) {
    return ArtworkPixmap(name, {64, 64}, 1, Qt::black).toImage();
  };
  for (const QString name : {"Motion", "Motor", "Encoder", "IO", "Regen", "Download", "Upload"}) {
    const QImage up = render(name + (name == "IO" ? "up" : "Up"));
    const QImage down = render(name + (name == "IO" ? "down" : "Down"));
    ASSERT_FALSE(up.isNull() || down.isNull()) << name.toStdString();
    EXPECT_NE(qAlpha(up.pixel(32, 32)), 0) << name.toStdString();
    EXPECT_NE(up, down) << name.toStdString();
  }
}

std::vector<SummaryGrid::Row> TitleDividerAndStallText() {
  std::vector<SummaryGrid::Row> rows(4);
  rows[0] = {{{"Motor:", {}}, {"Motor:", {}}}, true, 0};
  rows[1] = {{{" ", "DividerGradient"}, {" ", "DividerGradient"}}, true, 100};
  rows[2] = {{{"3.5", {}}, {"A/phase", {}}}, false, 0};
  rows[3] = {{{"left", {}}, {"right", {}}}, true, 480};
  return rows;
}

TEST(SummaryGrid, ShowsMergedCellsOfTheSameTextAsOneAndTellsTheRowThatWasPicked) {
  SummaryGrid grid;
  std::vector<int> picked;
  QObject::connect(&grid, &SummaryGrid::rowDoubleClicked, [&picked](int row) { picked.push_back(row); });
  grid.resize(300, 200);
  grid.setContent(TitleDividerAndStallText(), {1950, 1950});
  grid.show();
  for (const auto& [row, span] : {std::pair(0, 2), {1, 2}, {2, 1}, {3, 1}})
    EXPECT_EQ(grid.columnSpan(row, 0), span) << "row " << row;

  for (int row = 0; row < grid.rowCount(); ++row) {
    const QPoint spot = grid.visualItemRect(grid.item(row, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, spot);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, spot);
  }
  EXPECT_EQ(picked, (std::vector{0, 2, 3})) << "a divider is no row to open";

  grid.setCurrentCell(0, 0);
  QTest::keyClick(&grid, Qt::Key_Down);
  QTest::keyClick(&grid, Qt::Key_Return);
  EXPECT_EQ(picked.back(), 2) << "the arrow keys step over a divider";
}

TEST(MainFormDesign, LinesFollowTheWindowAndNothingOverlapsAtTheLeastSize) {
  const std::unique_ptr<QWidget> window = BuildWindow("MainForm");
  for (const QSize size : {QSize(640, 480), QSize(1366, 700)}) {
    window->resize(size);
    window->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), size);
    const auto on = [&](const char* name) {
      const auto* const widget = window->findChild<QWidget*>(name);
      return QRect(widget->mapTo(window.get(), QPoint()), widget->size());
    };
    for (const auto& [line, button, part] : {std::tuple("MotionLine", "Motion", "HSinout1"),
                                             {"IOLine", "IO", "HSinout2"},
                                             {"EncoderLine", "Encoder", "HSencoder"},
                                             {"CommLine", "CommList", "HSrs485"}}) {
      EXPECT_TRUE(on(line).intersects(on(button)) && on(line).intersects(on(part))) << line;
      EXPECT_FALSE(on(button).intersects(on(part))) << line;
    }
    EXPECT_FALSE(on("Motion").intersects(on("IO")) || on("IO").intersects(on("Encoder")));
  }
}

}  // namespace
}  // namespace kavr6::widgets

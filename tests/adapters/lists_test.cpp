// Lists with notes: the port list while it is open, and the motor list with its search.
#include <QTest>
#include <QtWidgets>
#include <set>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/widgets/data_table.h"
#include "adapters/qt/windows/widgets/filter_list.h"
#include "adapters/qt/windows/widgets/noted_combo.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

std::string Spoken(const QAbstractItemModel& rows) {
  std::string all;
  for (int row = 0; row < rows.rowCount(); ++row) {
    const QModelIndex index = rows.index(row, 0);
    const QString spoken = index.data(Qt::AccessibleTextRole).toString();
    all += (spoken.isEmpty() ? index.data().toString() : spoken).toStdString() + "\n";
  }
  return all;
}

struct MotorList : SceneTest {
  void Open(int motors = 0) {
    for (int i = 0; i < motors; ++i)
      scene.table.AddMotor("NEMA 23-" + std::to_string(10'000 + i), 1.0 + i % 70 / 10.0, 100 + i % 9, 50);
    if (motors > 0) dialog.LoadMotorList();
    window = BuildWindow("MotorDialog");
    binder.emplace(dialog, *window);
    main.Motor.Click();
    window->show();
    window->activateWindow();
    QCoreApplication::processEvents();
    list = window->findChild<widgets::FilterList*>("MotorList");
    list->field().setFocus();
  }
  void Type(const char* words) {
    list->field().setFocus();
    list->field().selectAll();
    QTest::keyClicks(&list->field(), words);
  }
  void Press(Qt::Key key) { QTest::keyClick(list->window()->focusWidget(), key); }
  std::string Chosen() const { return dialog.MotorList.Text(); }

  MotorDialog& dialog = program.MotorSetup;
  std::unique_ptr<QWidget> window;
  std::optional<Binder> binder;
  widgets::FilterList* list = nullptr;
};

TEST_F(MotorList, SearchLeavesRowsAndOnlyEnterOrAnArrowPicksOne) {
  Open();
  EXPECT_EQ(dialog.FocusedControl(), &dialog.MotorList) << "the field is a part of the list";
  EXPECT_EQ(Spoken(*list->model()),
            "KM17-1S-170, 1.7 A, 60 oz in\nKM23-2S-300, 3 A, 180 oz in\nKM34-3S-670, 6.7 A, 1200 oz in\n");
  Type("km 3 a");
  EXPECT_EQ(Spoken(*list->model()), "KM23-2S-300, 3 A, 180 oz in\n");
  EXPECT_EQ(Chosen(), "KM17-1S-170");
  EXPECT_TRUE(list->selectionModel()->selectedIndexes().isEmpty());
  Press(Qt::Key_Escape);
  EXPECT_EQ(Chosen() + list->currentIndex().data().toString().toStdString(), "KM17-1S-170KM17-1S-170");
  EXPECT_TRUE(list->hasFocus() && list->model()->rowCount() == 3);

  Type("OZ s-");
  Press(Qt::Key_Down);
  EXPECT_EQ(Chosen(), "KM23-2S-300");
  EXPECT_EQ(dialog.lblRatedTorque.Caption(), "180");
  Press(Qt::Key_Return);
  EXPECT_EQ(Chosen(), "KM23-2S-300") << "the one that the arrow has reached";
  Type("km");
  Press(Qt::Key_Return);
  EXPECT_EQ(Chosen(), "KM17-1S-170") << "the first";

  Type("34");
  dialog.SetMotorList("KM23-2S-300");
  Press(Qt::Key_Escape);
  EXPECT_EQ(list->currentIndex().data(), "KM23-2S-300");
  Type("nobody");
  Press(Qt::Key_Return);
  EXPECT_EQ(Chosen(), "KM23-2S-300");
  window->hide();
  EXPECT_EQ(list->field().text(), "");
}

TEST_F(MotorList, TenThousandRowsAreSearchedWhileTyping) {
  Open(10'000);
  for (const auto& [words, left] : {std::pair("nema 23 1.0 a", 0), {"nema 23 1 a", 143}, {"10042", 1}}) {
    list->field().clear();
    for (const char* letter = words; *letter != 0; ++letter) {
      QElapsedTimer time;
      time.start();
      QTest::keyClick(&list->field(), *letter);
      list->repaint();
      EXPECT_LT(time.elapsed(), 200) << words << ": a slow machine under load";
    }
    EXPECT_EQ(list->model()->rowCount(), left) << words;
  }
}

TEST_F(SceneTest, OpenPortListFollowsItsDevicesAndAClosedOneDoesNot) {
  const std::unique_ptr<QWidget> window = BuildWindow("MainForm");
  const Binder binder(main, *window);
  window->show();
  auto* const combo = window->findChild<widgets::NotedCombo*>("CommList");
  for (int port = 2; port <= 8; ++port) scene.comm.Connect(port, nullptr);
  scene.comm.Refuse(3, "Port in use");
  EXPECT_EQ(Spoken(*combo->model()).substr(0, 10), "COM1\nCOM2\n");
  combo->showPopup();
  EXPECT_EQ(Spoken(*combo->model()).substr(0, 109),
            "COM1, simulated port 1, open\nCOM2, simulated port 2, there\n"
            "COM3, simulated port 3, in use by another program\n");
  EXPECT_GE(combo->view()->viewport()->width(), combo->view()->sizeHintForColumn(0));
  combo->view()->setCurrentIndex(combo->model()->index(5, 0));
  scene.comm.Unplug();
  Delay(scene.desktop, 0.5);
  EXPECT_EQ(Spoken(*combo->model()).substr(0, 33), "COM1, simulated port 1, not there");
  EXPECT_EQ(combo->view()->currentIndex().row(), 5) << "the list stays as it stands";
  EXPECT_EQ(combo->currentText(), "COM1");
  combo->hidePopup();
  scene.comm.Plug();
  Delay(scene.desktop, 0.1);
  EXPECT_EQ(Spoken(*combo->model()).substr(0, 33), "COM1, simulated port 1, not there");
}

TEST_F(SceneTest, ChoosingTheRowOfALostPortOnceMoreOpensIt) {
  const std::unique_ptr<QWidget> window = BuildWindow("MainForm");
  const Binder binder(main, *window);
  window->show();
  auto* const combo = window->findChild<widgets::NotedCombo*>("CommList");
  scene.comm.Unplug();
  scene.comm.Plug();  // whose news have not been heard
  EXPECT_FALSE(scene.comm.PortOpen());
  combo->showPopup();
  QTest::keyClick(combo->view(), Qt::Key_Return);
  EXPECT_TRUE(scene.comm.PortOpen());
  EXPECT_EQ(scene.comm.Written(), "0");
}

std::set<QRgb> SolidColours(const QImage& image) {
  std::set<QRgb> colours;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qAlpha(image.pixel(x, y)) == 255) colours.insert(image.pixel(x, y));
  return colours;
}

TEST(DataTable, TellsARowAsAWholeAndCutsWhatDoesNotFit) {
  widgets::DataTable table;
  table.resize(400, 200);
  table.setContent(
      {"Section", "Setting", "On screen", "In the drive", "Comparison"},
      {{{"Motor", "FactNo"}, {"Idle current", {}}, {"50 %", {}}, {"40 %", {}}, {"differs", {}}},
       {{"Host", "FactYes"}, {"Protocols", {}}, {QString(99, 'x'), {}}, {"-", {}}, {"same", {}}}});
  table.show();
  EXPECT_EQ(Spoken(*table.model()),
            "Motor, Idle current, On screen 50 %, In the drive 40 %, differs\nHost, Protocols, On screen " +
                std::string(99, 'x') + ", In the drive -, same\n");
  EXPECT_NE(table.item(0, 0)->icon().pixmap(16).toImage(), table.item(1, 0)->icon().pixmap(16).toImage());
  const auto picked = [&](QIcon::Mode mode) {
    return SolidColours(table.item(0, 0)->icon().pixmap(16, mode).toImage());
  };
  EXPECT_EQ(picked(QIcon::Selected), picked(QIcon::Normal));
  table.activateWindow();
  table.setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(picked(QIcon::Selected), std::set{table.palette().color(QPalette::HighlightedText).rgb()});
  table.clearFocus();
  EXPECT_EQ(picked(QIcon::Selected), picked(QIcon::Normal));
  EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
  EXPECT_EQ(table.item(1, 2)->toolTip().size(), 99);
  table.setContent({"Section"}, {});
  EXPECT_EQ(table.rowCount(), 0);
}

}  // namespace
}  // namespace kavr6

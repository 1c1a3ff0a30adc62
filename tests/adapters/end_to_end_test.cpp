// The real serial port against the simulated drive's program.
#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/serial/serial_comm.h"
#include "core/configurator.h"
#include "tests/support/catalogue.h"

namespace kavr6 {
namespace {

/// The program drive_simulator behind COM1 of a folder.
class Simulator {
 public:
  explicit Simulator(const QString& folder) : folder_(folder) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  }
  ~Simulator() { Kill(); }
  void Start() {
    process_.start(DRIVE_SIMULATOR, {"--dir", folder_, "--image", folder_ + "/drive.image"});
    ASSERT_TRUE(process_.waitForReadyRead(10000)) << "it tells where it is";
  }
  void Kill() {
    process_.kill();
    process_.waitForFinished();
  }
  void Order(const char* text) { process_.write(text); }

 private:
  QString folder_;
  QProcess process_;
};

/// The program without its windows on the screen, and a drive on COM1.
class EndToEndTest : public testing::Test {
 protected:
  EndToEndTest() {
    closer_.callOnTimeout([this] { CloseBox(); });
    closer_.start(10);
    simulator_.Start();
    main_.EnsureLoaded();
    main_.InertiaSet = true;
  }
  /// Notes the first sentence of a box, and presses its button.
  void CloseBox() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      boxes_.push_back(box->text().section('.', 0, 0).toStdString());
      box->defaultButton()->click();
    }
  }

  QTemporaryDir folder_;
  Simulator simulator_{folder_.path()};
  QtDesktop desktop_{[](const std::string&) { return std::unique_ptr<QWidget>(); }};
  SerialComm comm_{desktop_, std::filesystem::path(folder_.path().toStdString()) / "ports"};
  MemoryTable table_ = CatalogueTable();
  Configurator program_{desktop_, comm_, table_};
  MainForm& main_ = program_.Main;
  double& speed_ = program_.settings.Speed;
  QTimer closer_;
  std::vector<std::string> boxes_;
};

TEST_F(EndToEndTest, SettingsGoToTheDriveAndComeBackAtLineSpeed) {
  EXPECT_EQ(main_.CommList.ListIndex(), 0);
  EXPECT_EQ(main_.Identity.CheckDrive(), "\x34\x29");
  EXPECT_EQ(main_.DriveVersion.Caption(), "1.52 k");
  speed_ = 12;
  main_.Download.Click();
  speed_ = 77;
  main_.Upload.Click();
  EXPECT_DOUBLE_EQ(speed_, 12);

  simulator_.Order("restart\n");
  EXPECT_TRUE(desktop_.PumpEventsUntil([&] { return main_.DriveVersion.Caption() == "1.52"; }, 5.0))
      << "an announcement shows the revision without its letter";
  EXPECT_EQ(boxes_, std::vector<std::string>{});
}

TEST_F(EndToEndTest, DriveThatDiesInATransferIsToldAndServesAfterItsReturn) {
  speed_ = 12;
  main_.Download.Click();
  using Boxes = std::vector<std::string>;
  const std::pair<ImageButton&, Boxes> transfers[] = {
      {main_.Download, {"The download did not work"}},
      {main_.Upload,
       {"We are having trouble uploading tuning data from the drive", "The drive is not responding"}}};
  for (const auto& [button, complaints] : transfers) {
    main_.ProgBar.SetView([this] {
      if (main_.ProgBar.FloodPercent() > 50) simulator_.Kill();
    });
    speed_ = 77;
    button.Click();
    EXPECT_FALSE(comm_.PortOpen());
    EXPECT_THROW(comm_.SetPortOpen(true), RuntimeError);

    EXPECT_EQ(std::exchange(boxes_, {}), complaints);

    main_.ProgBar.SetView([] {});
    simulator_.Start();
    comm_.SetPortOpen(true);
    main_.Upload.Click();
    EXPECT_DOUBLE_EQ(speed_, 12) << "the drive has kept the last whole image";
    EXPECT_EQ(boxes_, Boxes{});
  }
}

}  // namespace
}  // namespace kavr6

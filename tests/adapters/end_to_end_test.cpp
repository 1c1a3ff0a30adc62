// The real serial port against the simulated drive's program.
#include <QProcess>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/serial/serial_comm.h"
#include "adapters/qt/windows/qt_desktop.h"
#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/memory_files.h"

namespace kavr6 {
namespace {

TEST(EndToEnd, DriveThatDiesInATransferIsToldAndServesAfterItsReturn) {
  const QTemporaryDir folder;
  QProcess simulator;  // with its drive behind COM1 of the folder
  simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  simulator.setProgram(DRIVE_SIMULATOR);
  simulator.setArguments({"--dir", folder.path(), "--image", folder.path() + "/drive.image"});
  simulator.start();
  ASSERT_TRUE(simulator.waitForReadyRead(10000)) << "it tells where it is";
  QtDesktop desktop([](const std::string&) { return std::unique_ptr<QWidget>(); });
  SerialComm comm(desktop, std::filesystem::path(folder.path().toStdString()) / "ports");
  MemoryTable table = CatalogueTable();
  MemoryFiles files;
  CollectedPrint print;
  Configurator program({desktop, comm, table, files, print});
  MainForm& main = program.Main;
  double& speed = program.settings.Speed;
  main.EnsureLoaded();
  program.state.InertiaSet = true;
  std::string boxes;
  QTimer closer;
  closer.callOnTimeout([&boxes] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      boxes += box->text().section('.', 0, 0).toStdString() + ";";
      box->defaultButton()->click();
    }
  });
  closer.start(10);

  speed = 12;
  main.Download.Press();
  EXPECT_EQ(main.DriveVersion.Caption(), "1.52 k");
  const std::pair<ImageButton&, std::string> transfers[] = {
      {main.Download, "The download did not work;"},
      {main.Upload,
       "We are having trouble uploading tuning data from the drive;The drive is not responding;"}};
  for (const auto& [button, complaints] : transfers) {
    main.ProgBar.SetView([&] {
      if (main.ProgBar.FloodPercent() > 50) simulator.kill();
    });
    speed = 77;
    button.Press();
    EXPECT_FALSE(comm.PortOpen());
    EXPECT_EQ(std::exchange(boxes, {}), complaints);

    main.ProgBar.SetView([] {});
    simulator.waitForFinished();
    simulator.start();
    ASSERT_TRUE(simulator.waitForReadyRead(10000));
    EXPECT_TRUE(desktop.PumpEventsUntil([&] { return comm.PortOpen(); }, 1.0)) << "by itself";
    main.Upload.Press();
    EXPECT_DOUBLE_EQ(speed, 12) << "the drive has kept the last whole image";
    EXPECT_EQ(boxes, "");
  }
  simulator.kill();
  simulator.waitForFinished();
}

}  // namespace
}  // namespace kavr6

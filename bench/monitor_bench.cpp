// The status monitor: a round of its questions over a line of true speed, with the simulated drive as a
// program of its own, against the time that its bytes take on the line; and an hour of rounds in virtual
// time.
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <vector>

#include <unistd.h>

#include "adapters/qt/serial/serial_comm.h"
#include "bench/bench_program.h"
#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/memory_files.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {
namespace {

constexpr int kRounds = 101;
constexpr double kMinute = 60.0;
constexpr int kMinutes = 60;

class CountingComm : public SerialComm {
 public:
  using SerialComm::SerialComm;
  std::size_t bytes = 0;

 protected:
  void Send(std::span<const std::uint8_t> sent) override {
    bytes += sent.size();
    SerialComm::Send(sent);
  }
};

int MeasureRounds(const std::filesystem::path& folder) {
  BenchProgram<CountingComm> bench(folder);
  BenchDesktop& desktop = bench.desktop;
  CountingComm& comm = bench.comm;
  Configurator& program = bench.program;
  ExecStatus& monitor = program.StatusMonitor;
  program.receive.AddLiveTool(monitor.Name(), [&](std::uint8_t byte) {
    ++comm.bytes;
    monitor.Take(byte);
  });
  monitor.Show();
  monitor.Timer1.SetEnabled(false);
  std::vector<double> times;
  std::vector<double> shares;
  for (int i = 0; i < kRounds; ++i) {
    Delay(desktop, monitor.Timer1.Interval() / 1000.0);
    comm.bytes = 0;
    QElapsedTimer time;
    time.start();
    monitor.Timer1.Tick.Raise();
    times.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
    shares.push_back(times.back() / (static_cast<double>(comm.bytes) * SimulatedDrive::kByteTime * 1e3));
  }
  if (monitor.StripChart.Shown().size() != kRounds) {
    std::printf("not every round has been answered\n");
    return 1;
  }
  std::ranges::sort(times);
  std::ranges::sort(shares);
  std::printf("round of the status monitor, median of %d: %.2f ms, %.4f times the line's time (worst %.4f)\n",
              kRounds, times[kRounds / 2], shares[kRounds / 2], shares.back());
  return 0;
}

int MeasureRoundsWithDrive() {
  QTemporaryDir folder;
  QProcess drive;
  drive.start(QCoreApplication::applicationDirPath() + "/drive_simulator",
              {"--port", "COM1", "--model", "KAVR6-Zu", "--quiet", "--dir", folder.path()});
  for (int i = 0; i < 250 && !QFileInfo(folder.filePath("ports/COM1")).isSymLink(); ++i) QThread::msleep(20);
  const int failed = MeasureRounds(folder.path().toStdString());
  drive.terminate();
  drive.waitForFinished();
  return failed;
}

double ResidentMiB() {
  std::ifstream statm("/proc/self/statm");
  double all = 0;
  double resident = 0;
  statm >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

int LiveAnHour() {
  HeadlessDesktop desktop;
  SimulatedDrive drive(desktop.Line());
  drive.SetIdentity(52, 43, 'k');
  SimulatedComm comm(desktop, desktop.Line());
  comm.Connect(1, &drive);
  MemoryTable table = CatalogueTable();
  MemoryFiles files;
  CollectedPrint print;
  Configurator program({desktop, comm, table, files, print});
  program.Start();
  long questions = 0;
  long answers = 0;
  drive.Observe = [&](const DriveEvent& event) {
    if (event.query) ++(event.kind == DriveEvent::Kind::Command ? questions : answers);
  };
  QElapsedTimer time;
  time.start();
  program.StatusMonitor.Show();
  double early = 0;
  for (int minute = 0; minute < kMinutes; ++minute) {
    Delay(desktop, kMinute);
    comm.ForgetWritten();
    if (minute == kMinutes / 10) early = ResidentMiB();
  }
  const std::size_t rows = program.StatusMonitor.StripChart.Shown().size();
  program.StatusMonitor.OK.Click();
  std::printf(
      "an hour of the status monitor: %ld questions, %ld answers, %zu rows in the chart; memory from "
      "%.1f to %.1f MiB; took %.1f s\n",
      questions, answers, rows, early, ResidentMiB(), static_cast<double>(time.elapsed()) / 1e3);
  return questions == answers && questions > 0 ? 0 : 1;
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(kavr6::kProgramTitle);
  QApplication::setApplicationVersion("1.0.0");
  return kavr6::LiveAnHour() + kavr6::MeasureRoundsWithDrive();
}

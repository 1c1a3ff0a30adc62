// What a person at the machine feels: start, transfers over a line of true speed, processor time at rest,
// memory. Usage: program_bench              measures, with the simulated drive as a program of its own
//        program_bench --child ...  one measured process; started by the first form
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <vector>

#include <sys/resource.h>

#include "adapters/qt/base/file_store.h"
#include "adapters/qt/print/qt_print_job.h"
#include "adapters/qt/serial/serial_comm.h"
#include "adapters/qt/windows/widgets/filter_list.h"
#include "adapters/sqlite/motor_catalogue.h"
#include "adapters/sqlite/sqlite_table.h"
#include "bench/bench_desktop.h"
#include "core/program/configurator.h"

namespace kavr6 {
namespace {

constexpr int kStarts = 25;
constexpr double kLineMs = 168.75;  // 161 bytes and the answer at 9600 baud
constexpr double kRestSeconds = 3.0;

double NowMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double PeakMemoryMiB() {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  return static_cast<double>(use.ru_maxrss) / 1024.0;
}

struct Program {
  explicit Program(const std::filesystem::path& folder)
      : desktop(folder), comm(desktop, folder / "ports"), configurator({desktop, comm, table, files, print}) {
    desktop.AtEnd([this] { comm.Release(); });
  }
  BenchDesktop desktop;
  SerialComm comm;
  SqliteTable table;
  DiskFiles files;
  QtPrintJob print{[this] { return desktop.BoxParent(); }, [] {}};
  Configurator configurator;
};

/// Tells how long after `startMs` the window was first painted, then ends the process by `end`.
class FirstPaint : public QObject {
 public:
  FirstPaint(double startMs, QString window, std::function<void()> end)
      : startMs_(startMs), window_(std::move(window)), end_(std::move(end)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->objectName() == window_) {
      QTimer::singleShot(0, this, [this] {
        std::printf("%.2f\n", NowMs() - startMs_);
        std::fflush(stdout);
        end_();
      });
    }
    return false;
  }

 private:
  double startMs_;
  QString window_;
  std::function<void()> end_;
};

int StartEmpty(double startMs) {
  QWidget window;
  window.setObjectName("Empty");
  const FirstPaint paint(startMs, "Empty", [] { std::_Exit(0); });
  window.resize(800, 600);
  window.show();
  return QApplication::exec();
}

int StartMain(double startMs, const std::filesystem::path& folder) {
  Program program(folder);
  const FirstPaint paint(startMs, "MainForm", [&program] { program.desktop.EndProgram(0); });
  program.configurator.Start();
  return QApplication::exec();
}

void MeasureRest(Program& program, const char* when) {
  Delay(program.desktop, 0.5);
  const double before = ProcessorMs();
  Delay(program.desktop, kRestSeconds);
  std::printf("at rest %-22s %6.1f ms of processor time in %.0f s\n", when, ProcessorMs() - before,
              kRestSeconds);
}

int Work(const std::filesystem::path& folder) {
  Program program(folder);
  program.configurator.Start();
  MainForm& main = program.configurator.Main;
  MeasureRest(program, "with a drive");
  program.configurator.state.InertiaSet = true;
  std::vector<double> downloads;
  std::vector<double> uploads;
  for (int i = 0; i < 5; ++i) {
    double start = NowMs();
    main.Download.Click();
    downloads.push_back(NowMs() - start);
    start = NowMs();
    main.Upload.Click();
    uploads.push_back(NowMs() - start);
  }
  std::sort(downloads.begin(), downloads.end());
  std::sort(uploads.begin(), uploads.end());
  std::printf("download click, median of 5: %.1f ms; upload click: %.1f ms\n", downloads[2], uploads[2]);
  // The bare exchange: 161 bytes and one answer, without checks and the fixed pause.
  std::vector<double> exchanges;
  const ParameterImage image = [&] {
    ParameterImage built{};
    DownloadString(built, program.configurator.settings, program.configurator.motorTable.Row());
    StoreChecksum(built);
    return built;
  }();
  for (int i = 0; i < 5; ++i) {
    program.comm.SetRThreshold(3);
    program.comm.Output("d");
    Delay(program.desktop, 0.01);
    const double start = NowMs();
    for (const Byte byte : image) {
      WriteByte(program.comm, byte);
      program.desktop.PumpEvents();
    }
    program.desktop.PumpEventsUntil([&] { return program.comm.InBufferCount() > 0; }, 1.0);
    exchanges.push_back(NowMs() - start);
    program.comm.Input();
    program.comm.SetRThreshold(1);
  }
  std::sort(exchanges.begin(), exchanges.end());
  std::printf("161 bytes and the answer, median of 5: %.2f ms, %.4f times the line's %.2f ms\n", exchanges[2],
              exchanges[2] / kLineMs, kLineMs);
  std::printf("unplug\n");
  std::fflush(stdout);
  program.desktop.PumpEventsUntil([&] { return !program.comm.PortOpen(); }, 5.0);
  MeasureRest(program, program.comm.PortOpen() ? "(NOT hung up)" : "after a hang-up");
  std::printf("peak memory %.1f MiB\n", PeakMemoryMiB());
  program.desktop.EndProgram(0);
}

int RestWithoutDrive(const std::filesystem::path& folder) {
  Program program(folder);
  program.configurator.Start();
  MeasureRest(program, "without a port");
  program.desktop.EndProgram(0);
}

/// The slowest letter of a search that ends with the last row, each up to the painted list.
double SlowestLetter(QWidget& window) {
  auto& list = *window.findChild<widgets::FilterList*>("MotorList");
  double slowest = 0;
  for (const QChar letter : QString("109999")) {
    const double start = NowMs();
    list.field().insert(letter);
    list.repaint();
    slowest = std::max(slowest, NowMs() - start);
  }
  return slowest;
}

/// From the click to the painted dialog, with the motor database of that folder.
int OpenMotorDialog(const std::filesystem::path& folder) {
  Program program(folder);
  double start = NowMs();
  program.configurator.Start();
  const double started = NowMs() - start;
  std::vector<double> openings;
  for (int i = 0; i < 2; ++i) {
    start = NowMs();
    program.configurator.Main.Motor.Click();
    QWidget* const window = program.desktop.WindowOf(program.configurator.MotorSetup);
    window->repaint();
    openings.push_back(NowMs() - start);
    program.configurator.MotorSetup.Hide();
    Delay(program.desktop, 0.1);
  }
  start = NowMs();
  program.configurator.Main.CommList.Open();
  const double ports = NowMs() - start;
  program.configurator.Main.Motor.Click();
  const double letter = SlowestLetter(*program.desktop.WindowOf(program.configurator.MotorSetup));
  std::printf(
      "catalogue of %d motors: start %.1f ms, motor dialog %.1f ms, once more %.1f ms, slowest letter of a "
      "search %.1f ms; what the port list tells %.1f ms\n",
      program.configurator.MotorSetup.MotorList.Count(), started, openings[0], openings[1], letter, ports);
  program.desktop.EndProgram(0);
}

/// From the click to the painted page: the window's first opening, then each page of the program's own
/// folder.
int OpenHelpPages(const std::filesystem::path& folder) {
  Program program(folder);
  Configurator& configurator = program.configurator;
  configurator.Start();
  const auto timed = [&](const std::function<void()>& open) {
    const double start = NowMs();
    open();
    program.desktop.WindowOf(configurator.Help)->repaint();
    return NowMs() - start;
  };
  const double first = timed([&] { configurator.Main.MenuContents.Click(); });
  const std::string help = QCoreApplication::applicationDirPath().toStdString() + "/KAVR6 help/";
  std::vector<double> times;
  for (const auto& entry : std::filesystem::directory_iterator(help))
    if (entry.path().extension() == ".html")
      times.push_back(timed([&] { configurator.Help.HelpBrowser.Navigate(entry.path().string()); }));
  std::sort(times.begin(), times.end());
  std::printf("help: first opening %.1f ms; %zu pages, median %.1f ms, slowest %.1f ms\n", first,
              times.size(), times[times.size() / 2], times.back());
  program.desktop.EndProgram(0);
}

/// A motor database of that many rows, all with the values of the first motor of the program's own.
void MakeCatalogue(const std::filesystem::path& folder, int motors) {
  SqliteTable model;
  model.Open(QCoreApplication::applicationDirPath().toStdString() + "/" + kMotorFile, kMotorTableName);
  model.SetIndex("PartNoX");
  model.MoveFirst();
  std::vector<CatalogueRow> rows;
  for (int i = 0; i < motors; ++i) {
    CatalogueRow row;
    for (const MotorColumn& column : kMotorColumns) row.push_back(model.Read(column.name));
    row[0] = row[1] = "M" + std::to_string(100000 + i);
    rows.push_back(row);
  }
  WriteMotorFile(rows, folder / kMotorFile);
}

std::string RunChild(const QStringList& arguments, QProcess* drive = nullptr) {
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QStringList all = arguments;
  all.prepend("--child");
  all << QString::number(NowMs(), 'f', 3);
  child.start(QCoreApplication::applicationFilePath(), all);
  std::string output;
  while (child.state() != QProcess::NotRunning || child.bytesAvailable() > 0) {
    child.waitForReadyRead(100);
    const QByteArray read = child.readAllStandardOutput();
    if (drive != nullptr && read.contains("unplug\n")) {
      drive->write("unplug\n");
      drive->waitForBytesWritten();
    }
    output += QByteArray(read).replace("unplug\n", "").toStdString();
  }
  return output;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// Both kinds of start in turns, so that what else the machine does hits both alike.
void MeasureStarts(const QString& folder) {
  std::vector<double> emptyTimes;
  std::vector<double> mainTimes;
  for (int i = 0; i < kStarts; ++i) {
    emptyTimes.push_back(std::stod(RunChild({"empty", folder})));
    mainTimes.push_back(std::stod(RunChild({"main", folder})));
  }
  const double empty = Median(emptyTimes);
  const double main = Median(mainTimes);
  std::printf("start to first paint, medians of %d: empty window %.1f ms, main screen %.1f ms, %.2f times\n",
              kStarts, empty, main, main / empty);
}

int MeasureAll() {
  QTemporaryDir folder;
  const QString bin = QCoreApplication::applicationDirPath();
  QFile::copy(bin + "/" + kMotorFile, folder.filePath(kMotorFile));
  QTemporaryDir large;
  for (const int motors : {32, 10'000}) {
    MakeCatalogue(large.path().toStdString(), motors);
    std::fputs(RunChild({"motors", large.path()}).c_str(), stdout);
  }
  std::fputs(RunChild({"rest", folder.path()}).c_str(), stdout);
  std::fputs(RunChild({"help", folder.path()}).c_str(), stdout);
  QProcess drive;
  drive.start(bin + "/drive_simulator", {"--port", "COM1", "--quiet", "--dir", folder.path()});
  while (!QFileInfo(folder.filePath("ports/COM1")).isSymLink()) QThread::msleep(20);
  MeasureStarts(folder.path());
  std::fflush(stdout);
  std::fputs(RunChild({"work", folder.path()}, &drive).c_str(), stdout);
  drive.terminate();
  drive.waitForFinished();
  return 0;
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
  using namespace kavr6;
  if (argc < 5) {
    QCoreApplication application(argc, argv);
    return MeasureAll();
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  QApplication::setApplicationVersion("1.0.0");
  const std::string what = argv[2];
  const std::filesystem::path folder = argv[3];
  const double startMs = std::stod(argv[4]);
  if (what == "empty") return StartEmpty(startMs);
  if (what == "motors") return OpenMotorDialog(folder);
  if (what == "help") return OpenHelpPages(folder);
  if (what == "main") return StartMain(startMs, folder);
  return what == "work" ? Work(folder) : RestWithoutDrive(folder);
}

// The whole main job in the real windows, by nothing but the keyboard.
#include <QProcess>
#include <QTest>
#include <QtWidgets>
#include <cstdlib>

#include <fcntl.h>
#include <gtest/gtest.h>

#include "adapters/qt/serial/serial_comm.h"
#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/qt_desktop.h"
#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/memory_files.h"

namespace kavr6 {
namespace {

/// Where the keys go, a person sees at the focus alone.
class Keys {
 public:
  /// Boxes are answered by Alt+Y or by Enter, file dialogs by a name that is typed; what was asked is noted.
  Keys(const QtDesktop& desktop, QString file) : desktop_(desktop), file_(std::move(file)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(20);
  }
  void Press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(Window(), static_cast<Qt::Key>(key), with);
    QTest::qWait(1);
  }
  void Type(const char* text) {
    for (; *text != 0; ++text) QTest::keyClick(Window(), *text);
  }
  static std::string Focus() {
    const QWidget* const focus = QApplication::focusWidget();
    return focus == nullptr ? "nothing" : focus->objectName().toStdString();
  }
  /// By the Tab key, how ever far; within a group of option buttons by the arrows.
  void TabTo(const std::string& name) {
    for (int i = 0; i < 60 && Focus() != name; ++i) Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), name) << "cannot be reached by Tab";
  }
  void WaitForWindow(const std::string& name) {
    EXPECT_TRUE(QTest::qWaitFor([&] {
      const QWidget* const window = QApplication::activeWindow();
      return window != nullptr && window->objectName().toStdString() == name;
    })) << name;
  }
  std::string asked;

 private:
  /// The window that has the focus. A box that comes, and the window below one that has gone, become active
  /// by the window manager; here there is none.
  QWindow* Window() const {
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const front = modal != nullptr ? modal : desktop_.BoxParent();
    if (modal != nullptr || QGuiApplication::focusWindow() == nullptr) front->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return front->isActiveWindow(); }));
    return QGuiApplication::focusWindow();
  }
  void Answer() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == answered_ || !modal->isVisible()) return;
    auto* const box = qobject_cast<QMessageBox*>(modal);
    if (box != nullptr) asked += box->text().toStdString() + ";";
    if (qobject_cast<QFileDialog*>(modal) != nullptr) {
      asked += "file;";
      Type(file_.toUtf8());
    }
    answered_ = modal;
    if (box != nullptr && box->button(QMessageBox::Yes) != nullptr) return Press(Qt::Key_Y, Qt::AltModifier);
    Press(Qt::Key_Return);
  }
  const QtDesktop& desktop_;
  QString file_;
  QTimer timer_;
  QPointer<QWidget> answered_;
};

struct Keyboard : testing::Test {
  /// COM1 is a line without a drive, the drive is on COM2.
  void SetUp() override {
    QDir(folder.path()).mkdir("ports");
    silent = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(silent);
    unlockpt(silent);
    ASSERT_TRUE(QFile::link(ptsname(silent), folder.path() + "/ports/COM1"));
    simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator.start(DRIVE_SIMULATOR, {"--dir", folder.path(), "--port", "COM2"});
    ASSERT_TRUE(simulator.waitForReadyRead(10000)) << "it tells where it is";
    comm.emplace(desktop, std::filesystem::path(folder.path().toStdString()) / "ports");
    program.emplace(Machine{desktop, *comm, table, files, print});
    program->Start();
    keys.WaitForWindow("MainForm");
  }
  void TearDown() override {
    simulator.kill();
    simulator.waitForFinished();
    close(silent);
  }
  const QTemporaryDir folder;
  int silent = -1;
  QProcess simulator;
  QtDesktop desktop{BuildWindow};
  std::optional<SerialComm> comm;
  MemoryTable table = CatalogueTable();
  MemoryFiles files;
  CollectedPrint print;
  std::optional<Configurator> program;
  Keys keys{desktop, folder.path() + "/job.cnf"};
};

TEST_F(Keyboard, WholeMainJobIsDoneWithoutAMouse) {
  const std::string file = folder.path().toStdString() + "/job.cnf";
  Settings& settings = program->settings;
  EXPECT_EQ(Keys::Focus(), "Motor") << "where the job begins, once port and model are right";

  keys.Press(Qt::Key_S, Qt::AltModifier);
  keys.Press(Qt::Key_Down);
  EXPECT_EQ(program->state.CommNumber, 2);
  keys.TabTo("ModelList");
  keys.Press(Qt::Key_Up);

  keys.TabTo("Motor");
  keys.Press(Qt::Key_Space);
  keys.WaitForWindow("MotorDialog");
  keys.TabTo("MotorList");
  keys.Type("KM23");
  keys.TabTo("txtDriveCurrent");
  keys.Type("2.5");
  keys.Press(Qt::Key_Return);
  keys.WaitForWindow("MainForm");

  keys.TabTo("Motion");
  keys.Press(Qt::Key_Return);
  keys.WaitForWindow("MotionMenu");
  keys.TabTo("PulseDirMode");
  keys.Press(Qt::Key_Return);
  keys.WaitForWindow("PulseDirDialog");
  keys.TabTo("SPR");
  keys.Type("20000");
  keys.Press(Qt::Key_Return);
  keys.WaitForWindow("MainForm");

  keys.Press(Qt::Key_I, Qt::AltModifier);
  keys.WaitForWindow("IOdialog");
  keys.TabTo("optEnableAuto");
  keys.Press(Qt::Key_Up);
  keys.Press(Qt::Key_Return);
  keys.WaitForWindow("MainForm");

  keys.TabTo("Download");
  keys.Press(Qt::Key_Space);
  EXPECT_EQ(program->state.DriveVersion.Get(), "1.52 k");
  EXPECT_FALSE(program->state.Modified);
  keys.Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(files.content.count(file), 1U);

  InitVars(settings);
  keys.TabTo("Upload");
  keys.Press(Qt::Key_Space);
  EXPECT_DOUBLE_EQ(settings.RunCurrent, 2.5);
  EXPECT_EQ(settings.StepsPerRev, 20000);
  EXPECT_EQ(settings.EnableMode, 1);
  EXPECT_EQ(program->motorTable.Row().PartNoX, "KM23-2S-300");
  program->state.Modified = true;
  keys.Press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(
      keys.asked,
      "You have not set the load inertia in the Motor Settings.  The electronic damping and anti-resonance "
      "will work better if you set the load inertia accurately.  Do you want to download your settings "
      "anyway?;file;You have made changes without Saving or Downloading.  Do you really want to quit?;");
}

}  // namespace
}  // namespace kavr6

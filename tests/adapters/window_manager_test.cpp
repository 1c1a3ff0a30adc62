// The host terminal under a real window manager and on the desktop without a screen: who is in front decides
// what goes over the wire, so the same clicks have to send the same bytes.
#include <QProcess>
#include <QtWidgets>
#include <iostream>
#include <memory>

#include <gtest/gtest.h>
#include <unistd.h>

#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/qt_desktop.h"
#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/memory_files.h"

namespace kavr6 {
namespace {

constexpr double kSettled = 0.4;  // seconds after which a window manager has done what it was asked
constexpr int kTitleBar = 8;      // pixels below the upper edge of a window's frame

/// A port that keeps what is written to it, with nobody behind it.
class Wire : public MSComm {
 public:
  using MSComm::MSComm;
  std::string DeviceName(int) const override { return {}; }
  std::string written;

 protected:
  void OpenDevice(int) override {}
  void CloseDevice() override {}
  void Send(std::span<const std::uint8_t> bytes) override { written.append(bytes.begin(), bytes.end()); }
  void Block(const std::function<bool()>&, double) override {}
};

/// What a person does with windows as such.
struct User {
  virtual ~User() = default;
  virtual Desktop& Desk() = 0;
  virtual void Settle() = 0;
  /// Puts the windows where none covers another.
  virtual void Arrange(const std::vector<Form*>&) {}
  virtual void ClickTitle(Form& form) = 0;
  virtual void CloseByFrame(Form& form) = 0;
  /// To a window of another program and back.
  virtual void LookElsewhere(Form&) {}
};

struct HeadlessUser : User {
  HeadlessDesktop desktop;
  HeadlessUser() { desktop.AnswerAnything(); }
  Desktop& Desk() override { return desktop; }
  void Settle() override { Delay(desktop, kSettled); }
  void ClickTitle(Form& form) override { desktop.BroughtToFront(form); }
  void CloseByFrame(Form& form) override { form.RequestClose(); }
};

struct ScreenUser : User {
  QtDesktop desktop{BuildWindow};
  std::unique_ptr<QProcess> other;

  Desktop& Desk() override { return desktop; }
  void Settle() override { Delay(desktop, kSettled); }

  void Arrange(const std::vector<Form*>& forms) override {
    int x = 20;
    for (Form* form : forms) {
      QWidget* const window = desktop.WindowOf(*form);
      window->move(x, 40);
      x += window->frameGeometry().width() + 20;
    }
    Settle();
  }
  void Tool(const QStringList& words) {
    QProcess tool;
    tool.start("xdotool", words);
    desktop.PumpEventsUntil([&] { return tool.waitForFinished(1) || tool.state() == QProcess::NotRunning; },
                            5);
    ASSERT_EQ(tool.exitCode(), 0) << words.join(' ').toStdString();
    Settle();
  }
  void ClickAt(QPoint place) {
    Tool({"mousemove", QString::number(place.x()), QString::number(place.y()), "click", "1"});
  }
  void ClickTitle(Form& form) override {
    const QRect frame = desktop.WindowOf(form)->frameGeometry();
    ClickAt({frame.center().x(), frame.top() + kTitleBar});
  }
  void CloseByFrame(Form& form) override {
    ClickTitle(form);
    Tool({"key", "--clearmodifiers", "alt+F4"});
  }
  void LookElsewhere(Form& form) override {
    other = std::make_unique<QProcess>();
    other->start(QCoreApplication::applicationFilePath(), {"--other-program"});
    Delay(desktop, 1.0);
    EXPECT_EQ(QApplication::activeWindow(), nullptr) << "the other program is in front";
    other->kill();
    other->waitForFinished();
    ClickTitle(form);
  }
};

/// Every step with the bytes that it sends.
std::string Play(User& user) {
  Wire comm(user.Desk());
  MemoryTable table = CatalogueTable();
  MemoryFiles files;
  CollectedPrint print;
  Configurator program({user.Desk(), comm, table, files, print});
  std::string log;
  const auto tell = [&](const char* step) {
    user.Settle();
    log += std::string(step) + ": " + std::exchange(comm.written, {}) + "\n";
  };
  program.Start();
  user.Settle();
  comm.written.clear();
  program.Main.MenuTerminal.Click();
  tell("open");
  user.Arrange({&program.Main, &program.Terminal});
  tell("arrange");
  user.ClickTitle(program.Main);
  tell("main screen");
  user.ClickTitle(program.Terminal);
  tell("terminal");
  user.LookElsewhere(program.Terminal);
  tell("another program and back");
  program.Terminal.Help.Click();
  tell("help");
  user.Arrange({&program.Main, &program.Terminal, &program.Commands});
  user.ClickTitle(program.Terminal);
  tell("terminal");
  user.ClickTitle(program.Commands);
  tell("list");
  user.CloseByFrame(program.Commands);
  tell("list closed");
  user.Desk().CallAfter(kSettled, [&] { program.Credits.Hide(); });
  program.Main.MenuAbout.Click();
  tell("modal window from the main screen");
  user.ClickTitle(program.Terminal);
  tell("terminal");
  user.CloseByFrame(program.Terminal);
  tell("terminal closed");
  program.Main.MenuTerminal.Click();
  tell("open");
  program.Terminal.Quit.Click();
  tell("quit");
  return log;
}

TEST(WindowManager, TerminalGetsAndGivesBackTheLineAsOnTheDesktopWithoutAScreen) {
  HeadlessUser headless;
  ScreenUser screen;
  EXPECT_EQ(Play(screen), Play(headless));
}

/// A display of its own with a window manager on it.
class Screen {
 public:
  Screen() {
    int ends[2];
    if (pipe(ends) != 0) return;
    const QString write = QString::number(ends[1]);
    server_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server_.start("Xvfb", {"-screen", "0", "3200x1200x24", "-nolisten", "tcp", "-displayfd", write});
    server_.waitForStarted();
    close(ends[1]);
    char number[16] = {};
    const ssize_t count = read(ends[0], number, sizeof number - 1);
    close(ends[0]);
    if (count <= 0) return;
    qputenv("DISPLAY", QByteArray(":") + QByteArray(number, static_cast<int>(count)).trimmed());
    manager_.start("openbox", {"--sm-disable"});
    running = manager_.waitForStarted();
  }
  ~Screen() {
    for (QProcess* process : {&manager_, &server_}) {
      process->terminate();
      process->waitForFinished(3000);
    }
  }
  bool running = false;

 private:
  QProcess server_;
  QProcess manager_;
};

int ShowOtherProgram(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setGeometry(100, 900, 300, 100);
  window.show();
  window.activateWindow();
  return QApplication::exec();
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
  if (argc > 1 && std::string(argv[1]) == "--other-program") return kavr6::ShowOtherProgram(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  qputenv("QT_QPA_PLATFORM", "xcb");
  // A display of its own has no session, and looking for its bus would start one.
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  kavr6::Screen screen;
  if (!screen.running) {
    std::cerr << "no display with a window manager: is Xvfb or openbox missing?\n";
    return 1;
  }
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}

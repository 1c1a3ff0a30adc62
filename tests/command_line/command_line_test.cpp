// The program without windows, as a shell sees it: the sessions of sessions.txt against the simulated drive's
// program. A line "# ..." does something to the world, "$ ..." calls kavr6, or a copy of it by its path, and
// "% ..." is a line for the shell; below it stands what it prints, a message behind "! ", and its exit code
// in brackets. With KAVR6_WRITE_TRANSCRIPTS set, what has come of the calls is left beside it as
// sessions.got.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <functional>
#include <map>

#include <gtest/gtest.h>

namespace {

class World {
 public:
  World() {
    simulator_.setProgram(DRIVE_SIMULATOR);
    qputenv("XDG_DATA_HOME", Path("home").toUtf8());
    qputenv("KAVR6", KAVR6_PROGRAM);
  }
  ~World() { StopDrive(); }
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  void Do(const QString& heading) {
    const QString word = heading.section(' ', 0, 0);
    const QString rest = heading.section(' ', 1);
    const std::map<QString, std::function<void()>> steps{
        {"drive", [&] { StartDrive(rest); }},
        {"stop", [&] { StopDrive(); }},
        {"order", [&] { simulator_.write(rest.toUtf8() + '\n'), simulator_.waitForBytesWritten(); }},
        {"factory", [&] { QFile::copy(FACTORY_FILE, Path(rest)); }},
        {"line",
         [&] {
           ReplaceLine(rest.section(' ', 0, 0), rest.section(' ', 1, 1).toInt(), rest.section(' ', 2));
         }},
        {"pins", [&] { PinAllPorts(); }},
        {"begin", [&] { Start(begun_, rest); }},
        {"wait", [&] { QThread::msleep(rest.toULong()); }},
        {"interrupt", [&] { Interrupt(rest.toInt()); }},
    };
    ASSERT_TRUE(steps.contains(word)) << "no step " << word.toStdString();
    steps.at(word)();
  }

  /// What a call prints until it ends; "..." is the one that has been begun.
  QString Call(const QString& words) {
    if (words == "...") return End(begun_);
    QProcess call;
    Start(call, words);
    return End(call);
  }
  QString Shell(const QString& line) {
    QProcess shell;
    StartShell(shell, line);
    return End(shell);
  }

 private:
  QString Path(const QString& name) const { return folder_.filePath(name); }

  void StartDrive(const QString& options) {
    StopDrive();
    simulator_.start(DRIVE_SIMULATOR,
                     QStringList{"--dir", folder_.path()} + options.split(' ', Qt::SkipEmptyParts));
    EXPECT_TRUE(simulator_.waitForReadyRead(10000));
  }
  void StopDrive() {
    simulator_.kill();
    simulator_.waitForFinished();
  }

  /// Otherwise the ports of this computer would be told.
  void PinAllPorts() {
    const QString own = Path("home/kavr6/ports/");
    EXPECT_TRUE(QDir().mkpath(own));
    for (int n = 1; n <= 8; ++n)
      EXPECT_TRUE(QFile::link(Path(QString("ports/COM%1").arg(n)), own + QString("COM%1").arg(n)));
  }

  void ReplaceLine(const QString& name, int number, const QString& text) {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    QList<QByteArray> lines = file.readAll().split('\n');
    lines[number - 1] = text.toUtf8() + '\r';
    file.resize(0);
    file.write(lines.join('\n'));
  }

  /// `words` may end in a redirection of the shell's.
  void Start(QProcess& call, const QString& words) const {
    QString line = words;
    if (!line.contains("--port"))
      line.replace(QRegularExpression("^(identify|read|write|verify|history)\\b"), "\\1 --port ports/COM1");
    StartShell(call, QString("exec ") + (line.startsWith("./") ? "" : "$KAVR6 ") + line);
  }
  void StartShell(QProcess& shell, const QString& line) const {
    shell.setWorkingDirectory(folder_.path());
    shell.start("sh", {"-c", line});
    shell.waitForStarted();
  }
  QString End(QProcess& call) const {
    if (!call.waitForFinished(20000)) return "it hangs\n";
    QString told;
    for (const QString& line : Lines(call.readAllStandardOutput())) told += line + "\n";
    for (const QString& line : Lines(call.readAllStandardError())) told += "! " + line + "\n";
    const bool killed = call.exitStatus() == QProcess::CrashExit;
    return told + (killed ? "[signal " : "[") + QString::number(call.exitCode()) + "]\n";
  }
  void Interrupt(int afterMs) {
    EXPECT_FALSE(begun_.waitForFinished(afterMs));
    ASSERT_GT(begun_.processId(), 0);  // to nobody is to everybody
    kill(static_cast<pid_t>(begun_.processId()), SIGINT);
  }

  /// Without what differs from one run to the next.
  QStringList Lines(const QByteArray& text) const {
    QString told = QString::fromUtf8(text);
    told.replace(folder_.path(), "FOLDER");
    told.replace(QRegularExpression("/dev/pts/\\d+"), "/dev/pts/N");
    QStringList lines = told.split('\n');
    if (lines.last().isEmpty()) lines.removeLast();
    return lines.replaceInStrings(QRegularExpression("^$"), "(empty line)");
  }

  const QTemporaryDir folder_;
  QProcess simulator_;
  QProcess begun_;
};

struct Session {
  QString heading;  ///< with its mark
  QString printed;
};

QList<Session> Sessions() {
  QFile file(SESSIONS);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QList<Session> sessions;
  for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
    if (QRegularExpression("^[#$%] ").match(line).hasMatch()) {
      sessions.append({line, ""});
    } else if (!line.isEmpty() && !sessions.isEmpty()) {
      sessions.last().printed += line + "\n";
    }
  }
  return sessions;
}

TEST(CommandLine, PrintsAndEndsAsTheSessionsSay) {
  World world;
  QString got;
  for (const auto& [heading, printed] : Sessions()) {
    QString told;
    if (heading.startsWith("# ")) world.Do(heading.mid(2));
    if (heading.startsWith("$ ")) told = world.Call(heading.mid(2));
    if (heading.startsWith("% ")) told = world.Shell(heading.mid(2));
    EXPECT_EQ(told.toStdString(), printed.toStdString()) << heading.toStdString();
    got += heading + "\n" + told + (told.isEmpty() ? "" : "\n");
  }
  if (!qEnvironmentVariableIsSet("KAVR6_WRITE_TRANSCRIPTS")) return;
  QFile file(QString(SESSIONS).replace(".txt", ".got"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(got.toUtf8());
}

}  // namespace

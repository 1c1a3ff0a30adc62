#include "apps/kavr6/make_pdf.h"

#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <csignal>
#else
#include <windows.h>
#endif

#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kProgram = "kavr6-print-pdf";
constexpr int kPrinterError = 482;
constexpr double kPatience = 60;  // seconds; a sheet takes tenths of one
/// Exit code of the system for a program that lacks a library.
#ifdef Q_OS_UNIX
constexpr int kNotLoaded = 127;
#else
constexpr int kNotLoaded = static_cast<int>(0xC0000135);  // taken for a crash by the toolkit
#endif

/// Ctrl+C goes to both programs; who has started the other tells what comes of that.
void SpareFromInterrupts(QProcess& process) {
#ifdef Q_OS_UNIX
  process.setChildProcessModifier([] { std::signal(SIGINT, SIG_IGN); });
#else
  process.setCreateProcessArgumentsModifier(
      [](QProcess::CreateProcessArguments* arguments) { arguments->flags |= CREATE_NEW_PROCESS_GROUP; });
  SetErrorMode(SEM_FAILCRITICALERRORS);  // handed on: no box of the system about a missing library
#endif
}

/// Why there is no PDF file after it has ended.
std::string WhyNone(QProcess& process) {
  const bool started = process.error() != QProcess::FailedToStart;
  const bool exited = started && process.exitStatus() == QProcess::NormalExit;
  const int code = started ? process.exitCode() : 0;
  if (exited && code == 0) return " has made no PDF file";
  const bool loaded = code != kNotLoaded;
  QString reason = QString::fromUtf8(process.readAllStandardError()).simplified();
  const QString itself = QString(kProgram) + ": ";
  if (reason.startsWith(itself)) reason.remove(0, itself.size());
  if (reason.isEmpty() && !loaded) reason = "a library is missing";
  if (reason.isEmpty())
    reason = exited ? "it ended with code " + QString::number(code) : process.errorString();
  return (loaded ? " has failed: " : " does not start, install what it lacks: ") + reason.toStdString();
}

}  // namespace

std::string MakePdf(EventPump& pump, const std::filesystem::path& folder, const std::string& document) {
  const QString program =
      QStandardPaths::findExecutable(kProgram, {QString::fromStdU16String(folder.u16string())});
  if (program.isEmpty())
    throw RuntimeError(kPrinterError,
                       std::string("the part that prints is missing, install it: there is no ") + kProgram +
                           " in " + PathText(folder));
  QProcess process;
  SpareFromInterrupts(process);
  process.start(program, QStringList());
  process.write(document.data(), static_cast<qint64>(document.size()));
  process.closeWriteChannel();
  const auto ended = [&process] { return process.state() == QProcess::NotRunning; };
  if (!pump.PumpEventsUntil(ended, kPatience)) {
    process.kill();
    process.waitForFinished(1000);
    throw RuntimeError(kPrinterError, std::string(kProgram) + " does not end");
  }
  const QByteArray pdf = process.readAllStandardOutput();
  if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 && pdf.startsWith("%PDF-"))
    return pdf.toStdString();
  throw RuntimeError(kPrinterError, kProgram + WhyNone(process));
}

}  // namespace kavr6

#include "apps/kavr6/make_pdf.h"

#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kProgram = "kavr6-print-pdf";
constexpr int kPrinterError = 482;
constexpr double kPatience = 60;  // seconds; a sheet takes tenths of one

}  // namespace

std::string MakePdf(EventPump& pump, const std::filesystem::path& folder, const std::string& document) {
  const QString program =
      QStandardPaths::findExecutable(kProgram, {QString::fromStdU16String(folder.u16string())});
  if (program.isEmpty())
    throw RuntimeError(kPrinterError, std::string("the part that prints is not installed: there is no ") +
                                          kProgram + " in " + PathText(folder));
  QProcess process;
#ifdef Q_OS_UNIX
  // Ctrl+C goes to both; who has started it tells what comes of that.
  process.setChildProcessModifier([] { std::signal(SIGINT, SIG_IGN); });
#endif
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
  const QString reason = QString::fromUtf8(process.readAllStandardError()).simplified();
  throw RuntimeError(kPrinterError, kProgram + std::string(" has failed") +
                                        (reason.isEmpty() ? "" : ": " + reason.toStdString()));
}

}  // namespace kavr6

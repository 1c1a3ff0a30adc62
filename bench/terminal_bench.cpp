// The host terminal while a line of true speed never rests: a minute of answers, byte by byte from a process
// of its own, into a record that is full.
#include <QApplication>
#include <QTemporaryDir>
#include <csignal>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): pseudo-terminals are not in the C++ header
#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>  // NOLINT(modernize-deprecated-headers): nor are the clocks of the system
#include <unistd.h>

#include "adapters/qt/serial/serial_comm.h"
#include "bench/bench_program.h"

namespace kavr6 {
namespace {

constexpr long kBytesPerSecond = 960;
constexpr long kSeconds = 60;
constexpr long kBytes = kBytesPerSecond * kSeconds;
constexpr long kByteNanoseconds = 1'000'000'000 / kBytesPerSecond;
constexpr std::string_view kAnswers = "RS=JR\rIV=-120\rIE=00000000\rIT=312\r";

void SleepUntil(timespec& at, long nanoseconds) {
  at.tv_nsec += nanoseconds;
  at.tv_sec += at.tv_nsec / 1'000'000'000;
  at.tv_nsec %= 1'000'000'000;
  clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &at, nullptr);
}

/// The far end of the line: silent until the signal comes, and gone when all has been said.
[[noreturn]] void Speak(int line) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // or it would stay for ever, and with it whoever reads what both print
  sigset_t go;
  sigemptyset(&go);
  sigaddset(&go, SIGUSR1);
  int got = 0;
  sigwait(&go, &got);
  timespec at{};
  clock_gettime(CLOCK_MONOTONIC, &at);
  for (long sent = 0; sent < kBytes; ++sent) {
    if (write(line, &kAnswers[static_cast<std::size_t>(sent) % kAnswers.size()], 1) != 1) _exit(1);
    SleepUntil(at, kByteNanoseconds);
  }
  pause();
  _exit(0);
}

int Listen(const std::filesystem::path& folder, pid_t speaker) {
  BenchProgram<SerialComm> bench(folder);
  BenchDesktop& desktop = bench.desktop;
  Configurator& program = bench.program;
  program.ports.Select(0);
  long heard = 0;
  VTLterm& terminal = program.Terminal;
  program.receive.AddLiveTool(terminal.Name(), [&](std::uint8_t byte) {
    ++heard;
    terminal.Take(byte);
  });
  terminal.Show();
  terminal.History.Append(std::string(4000, '.'), false);
  Delay(desktop, 0.5);
  heard = 0;
  const double before = ProcessorMs();
  kill(speaker, SIGUSR1);
  desktop.PumpEventsUntil([&] { return heard >= kBytes; }, static_cast<double>(kSeconds) + 5.0);
  const double spent = ProcessorMs() - before;
  std::printf(
      "host terminal, %ld s at line speed: %ld of %ld bytes taken, %.2f %% of a core, %zu characters kept\n",
      kSeconds, heard, kBytes, spent / (static_cast<double>(kSeconds) * 10.0),
      terminal.History.Text().size());
  return heard == kBytes ? 0 : 1;
}

int Measure(int argc, char** argv) {
  QTemporaryDir folder;
  const int line = posix_openpt(O_RDWR | O_NOCTTY);
  if (line < 0 || grantpt(line) != 0 || unlockpt(line) != 0) return 1;
  const std::filesystem::path ports = std::filesystem::path(folder.path().toStdString()) / "ports";
  std::filesystem::create_directories(ports);
  std::filesystem::create_symlink(ptsname(line), ports / "COM1");
  sigset_t go;
  sigemptyset(&go);
  sigaddset(&go, SIGUSR1);
  sigprocmask(SIG_BLOCK, &go, nullptr);
  const pid_t speaker = fork();
  if (speaker == 0) Speak(line);
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  QApplication::setApplicationVersion("1.0.0");
  const int failed = Listen(ports.parent_path(), speaker);
  kill(speaker, SIGTERM);
  waitpid(speaker, nullptr, 0);
  return failed;
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) { return kavr6::Measure(argc, argv); }

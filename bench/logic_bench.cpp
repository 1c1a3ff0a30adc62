// Building and decoding an image, with the motor database, the receive path, and opening a file.
#include <benchmark/benchmark.h>

#include "adapters/sqlite/sqlite_table.h"
#include "core/program/configurator.h"
#include "image/parameter_image.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/memory_files.h"
#include "platform/headless/scripted_comm.h"

namespace kavr6 {
namespace {

struct Bench {
  HeadlessDesktop desktop;
  ScriptedComm comm{desktop};
  SqliteTable table;
  MemoryFiles files;
  CollectedPrint print;
  Configurator program{{desktop, comm, table, files, print}};

  Bench() {
    InitVars(program.settings);
    program.motorTable.Open(KAVR6_BIN);
    program.motorTable.MoveFirst();
    comm.SetRThreshold(1);
  }
};

void ImageBuild(benchmark::State& state) {
  Bench b;
  ParameterImage image{};
  for (auto _ : state) {
    DownloadString(image, b.program.settings, b.program.motorTable.Row());
    StoreChecksum(image);
    benchmark::DoNotOptimize(image);
  }
}
BENCHMARK(ImageBuild);

void ImageDecode(benchmark::State& state) {
  Bench b;
  ParameterImage image{};
  DownloadString(image, b.program.settings, b.program.motorTable.Row());
  for (auto _ : state) benchmark::DoNotOptimize(DecodeImage(image, b.program.settings));
}
BENCHMARK(ImageDecode);

/// Text in arrivals of this many bytes, through notification, ring and scanner into GlobalBuffer.
void ReceivePathText(benchmark::State& state) {
  Bench b;
  b.comm.SetPortOpen(true);
  const Bytes chunk(static_cast<std::size_t>(state.range(0)), 'A');
  for (auto _ : state) {
    b.program.state.GlobalBuffer.clear();
    b.comm.Feed(chunk);
    Delay(b.desktop, 1e-6);  // the clock of a desktop without a screen stands still unless it is told to wait
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReceivePathText)->Arg(8)->Arg(16)->Arg(31);

/// The whole command Open, the user's choice aside: reading, the motor's row, mode name and grid.
void OpenFile(benchmark::State& state) {
  Bench b;
  b.desktop.SetProgramDirectory(KAVR6_BIN);
  b.desktop.AnswerAnything();
  b.program.Start();
  b.desktop.Expect(ExpectedFile{FileDialog::Purpose::Save, "machine.cnf"});
  b.program.Files.MenuSaveAs();
  for (auto _ : state) {
    b.program.settings.Speed = 0;
    b.desktop.Expect(ExpectedFile{FileDialog::Purpose::Open, "machine.cnf"});
    b.program.Files.MenuOpen();
    if (b.program.settings.Speed == 0) state.SkipWithError("the file has not been read");
  }
}
BENCHMARK(OpenFile);

}  // namespace
}  // namespace kavr6

BENCHMARK_MAIN();

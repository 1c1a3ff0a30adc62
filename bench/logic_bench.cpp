// Building and decoding an image, with the motor database, and the receive path.
#include <benchmark/benchmark.h>

#include "adapters/sqlite/sqlite_table.h"
#include "core/configurator.h"
#include "image/parameter_image.h"
#include "platform/headless_desktop.h"
#include "tests/support/scripted_comm.h"

namespace kavr6 {
namespace {

struct Bench {
  HeadlessDesktop desktop;
  ScriptedComm comm{desktop};
  SqliteTable table;
  Configurator program{desktop, comm, table};

  Bench() {
    InitVars(program.settings);
    program.motorTable.Open(KAVR6_BIN);
    program.motorTable.MoveFirst();
    comm.SetPortOpen(true);
    comm.SetRThreshold(1);
  }
};

void ImageBuild(benchmark::State& state) {
  Bench b;
  ParameterImage image{};
  for (auto _ : state) {
    DownloadString(image, b.program.settings, b.program.motorTable, b.program.Main.Calculations);
    StoreChecksum(image);
    benchmark::DoNotOptimize(image);
  }
}
BENCHMARK(ImageBuild);

void ImageDecode(benchmark::State& state) {
  Bench b;
  ParameterImage image{};
  DownloadString(image, b.program.settings, b.program.motorTable, b.program.Main.Calculations);
  for (auto _ : state) benchmark::DoNotOptimize(DecodeImage(image, b.program.settings));
}
BENCHMARK(ImageDecode);

/// Text in arrivals of this many bytes, through notification, ring and scanner into GlobalBuffer.
void ReceivePathText(benchmark::State& state) {
  Bench b;
  const Bytes chunk(static_cast<std::size_t>(state.range(0)), 'A');
  for (auto _ : state) {
    b.program.Main.GlobalBuffer.clear();
    b.comm.Feed(chunk);
    Delay(b.desktop, 1e-6);  // the clock of a desktop without a screen stands still unless it is told to wait
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReceivePathText)->Arg(8)->Arg(16)->Arg(31);

}  // namespace
}  // namespace kavr6

BENCHMARK_MAIN();

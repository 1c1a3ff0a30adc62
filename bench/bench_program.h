// The whole program as the benchmarks of the live tools run it.
#pragma once

#include <filesystem>

#include "adapters/qt/base/file_store.h"
#include "bench/bench_desktop.h"
#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"

namespace kavr6 {

/// On real windows and the real port of `folder`, with a small catalogue and no paper; started.
template <class Comm>
struct BenchProgram {
  explicit BenchProgram(const std::filesystem::path& folder)
      : desktop(folder), comm(desktop, folder / "ports") {
    program.Start();
  }
  BenchDesktop desktop;
  Comm comm;
  MemoryTable table = CatalogueTable();
  DiskFiles files;
  CollectedPrint print;
  Configurator program{{desktop, comm, table, files, print}};
};

}  // namespace kavr6

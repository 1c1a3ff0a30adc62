// What the benchmarks of the whole program stand on.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include <sys/resource.h>

#include "adapters/qt/windows/forms.h"
#include "adapters/qt/windows/qt_desktop.h"

namespace kavr6 {

/// A folder as program directory, and every box answered with OK or Yes.
class BenchDesktop : public QtDesktop {
 public:
  explicit BenchDesktop(std::filesystem::path folder) : QtDesktop(BuildWindow), folder_(std::move(folder)) {}
  std::filesystem::path ProgramDirectory() const override { return folder_; }
  BoxAnswer ShowBox(const MessageBox& box) override {
    return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
  }
  // A click that does nothing is quick and says nothing.
  void Refused(const std::string& what) override {
    std::fprintf(stderr, "the user cannot do this: %s\n", what.c_str());
    std::_Exit(1);
  }

 private:
  std::filesystem::path folder_;
};

/// Processor time of this process so far.
inline double ProcessorMs() {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  return static_cast<double>(use.ru_utime.tv_sec + use.ru_stime.tv_sec) * 1e3 +
         static_cast<double>(use.ru_utime.tv_usec + use.ru_stime.tv_usec) / 1e3;
}

}  // namespace kavr6

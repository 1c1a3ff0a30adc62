// A folder for files that are saved and read.
#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "adapters/qt/base/file_store.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {

class DiskFilesTest : public testing::Test {
 protected:
  std::string In(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  std::filesystem::path At(const std::string& name) const { return PathOf(In(name)); }
  /// Number and text of the error, with # for the folder of the test.
  std::string ErrorOf(const std::function<void()>& work) const {
    try {
      work();
    } catch (const RuntimeError& error) {
      std::string text = std::to_string(error.Number()) + " " + error.what();
      if (const auto at = text.find(In("")); at != std::string::npos) text.replace(at, In("").size(), "#");
      return text;
    }
    return "none";
  }
  DiskFiles files;

 private:
  QTemporaryDir folder_;
};

}  // namespace kavr6

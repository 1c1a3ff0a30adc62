// Files in memory, with fault switches.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/file_store.h"
#include "platform/runtime_error.h"

namespace kavr6 {

struct MemoryFiles : FileStore {
  std::map<std::string, std::string> content;
  std::function<void(const std::string& name, std::string_view text)> Replaced;
  bool FailReplace = false;  ///< Replace raises an error, as on a full disk
  bool FailRead = false;     ///< Read raises an error, as without permission

  std::string Read(const std::string& name) const override {
    const auto found = content.find(name);
    if (found == content.end()) throw RuntimeError(kNoFile, "File not found");
    if (FailRead) throw RuntimeError(70, "Permission denied");
    return found->second;
  }
  void Replace(const std::string& name, std::string_view text) override {
    if (FailReplace) throw RuntimeError(61, "Disk full");
    content[name] = text;
    if (Replaced) Replaced(name, text);
  }
};

}  // namespace kavr6

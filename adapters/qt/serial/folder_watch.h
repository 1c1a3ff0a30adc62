// The system's notices of devices.
#pragma once

#include <QFileSystemWatcher>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/mscomm.h"

namespace kavr6 {

/// Tells when a file comes, goes or gets other rights in one of some folders. Between two notices of the
/// system it sleeps; several at once are told as one. Where the system names no folders, as on Windows,
/// nothing is told: there its own notices of devices would come in here.
class FolderWatch : public DeviceWatch {
 public:
  /// `folders` says which, as they are at this moment; it is asked again with every notice.
  FolderWatch(Scheduler& scheduler, std::function<std::vector<std::filesystem::path>()> folders,
              std::function<void()> told);
  ~FolderWatch() override { scheduler_.Cancel(news_); }

 private:
  void LookAtFolders();
  void Noticed();

  Scheduler& scheduler_;
  std::function<std::vector<std::filesystem::path>()> folders_;
  std::function<void()> told_;
  QFileSystemWatcher watcher_;
  Scheduler::TaskId news_ = 0;  // 0: none is under way
};

}  // namespace kavr6

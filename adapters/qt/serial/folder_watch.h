// Notices of devices where they are files.
#pragma once

#include <QFileSystemWatcher>
#include <filesystem>
#include <functional>
#include <vector>

#include "adapters/qt/serial/queued_news.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Tells when a file comes, goes or gets other rights in one of some folders. Between two notices of the
/// system it sleeps; several at once are told as one.
class FolderWatch : public DeviceWatch {
 public:
  /// `folders` says which, as they are at this moment; it is asked again with every notice.
  FolderWatch(Scheduler& scheduler, std::function<std::vector<std::filesystem::path>()> folders,
              std::function<void()> told);

 private:
  void LookAtFolders();
  void Noticed();

  std::function<std::vector<std::filesystem::path>()> folders_;
  QueuedNews news_;
  QFileSystemWatcher watcher_;
};

}  // namespace kavr6

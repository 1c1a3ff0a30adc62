#include "adapters/qt/serial/folder_watch.h"

#include <utility>

#include "adapters/qt/base/text.h"
#include "platform/path_text.h"

namespace kavr6 {

FolderWatch::FolderWatch(Scheduler& scheduler, std::function<std::vector<std::filesystem::path>()> folders,
                         std::function<void()> told)
    : scheduler_(scheduler), folders_(std::move(folders)), told_(std::move(told)) {
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, [this] { Noticed(); });
  LookAtFolders();
}

void FolderWatch::LookAtFolders() {
  QStringList missing;
  for (const std::filesystem::path& folder : folders_()) {
    const QString name = ToQt(PathText(folder));
    if (!name.isEmpty() && !watcher_.directories().contains(name)) missing << name;
  }
  if (!missing.isEmpty()) watcher_.addPaths(missing);
}

void FolderWatch::Noticed() {
  // A folder that is new is watched before anybody looks whether something is in it.
  LookAtFolders();
  if (news_ != 0) return;
  news_ = scheduler_.Post([this] {
    news_ = 0;
    const std::function<void()> tell = told_;  // which may be the end of this object
    tell();
  });
}

}  // namespace kavr6

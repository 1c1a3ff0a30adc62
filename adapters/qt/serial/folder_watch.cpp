#include "adapters/qt/serial/folder_watch.h"

#include <utility>

#include "adapters/qt/base/text.h"
#include "platform/path_text.h"

namespace kavr6 {

FolderWatch::FolderWatch(Scheduler& scheduler, std::function<std::vector<std::filesystem::path>()> folders,
                         std::function<void()> told)
    : folders_(std::move(folders)), news_(scheduler, std::move(told)) {
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
  news_.Tell();
}

}  // namespace kavr6

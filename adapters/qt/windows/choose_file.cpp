#include "adapters/qt/windows/choose_file.h"

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QTreeView>

#include "adapters/qt/base/program_folders.h"
#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/help_key.h"
#include "platform/path_text.h"

namespace kavr6 {
namespace {

/// "Words|*.ext" as the toolkit writes it: "Words (*.ext)".
QString FilterOf(const std::string& filter) {
  const QString text = ToQt(filter);
  return text.section('|', 0, 0) + " (" + text.section('|', 1, 1) + ")";
}

/// Icons by kind alone. The toolkit's own ones look into every file, which takes its time in a slow folder
/// and for ever in some.
class PlainIcons : public QFileIconProvider {
 public:
  QIcon icon(const QFileInfo& info) const override {
    return QFileIconProvider::icon(info.isDir() ? Folder : File);
  }
  QString type(const QFileInfo& /*info*/) const override { return {}; }
};

/// Nobody keeps his files where an installed program has its own.
QString UsersFolder(const std::string& folder) {
  const ProgramFolders program = FindProgramFolders();
  return program.installed && PathOf(folder) == program.data ? QDir::homePath() : ToQt(folder);
}

/// Room for whole names and dates.
void WidenColumns(QFileDialog& window) {
  constexpr int kTypeColumn = 2;
  auto* const view = window.findChild<QTreeView*>("treeView");
  if (view == nullptr) return;
  view->hideColumn(kTypeColumn);
  view->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  window.resize(window.sizeHint() * 1.3);
}

}  // namespace

std::string ChooseFile(const FileDialog& dialog, QWidget* parent, const std::function<void()>& help) {
  const bool saves = dialog.purpose == FileDialog::Purpose::Save;
  PlainIcons icons;
  QFileDialog window(parent, saves ? "Save As" : "Open", UsersFolder(dialog.folder), FilterOf(dialog.filter));
  const HelpKey key(window, help);
  // Not every system's own dialog asks about the name with its extension before a file is overwritten, or
  // lets a box that opens meanwhile be used.
  window.setOption(QFileDialog::DontUseNativeDialog);
  window.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  window.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  window.setIconProvider(&icons);
  WidenColumns(window);
  window.setDefaultSuffix(ToQt(dialog.defaultExtension));
  if (window.exec() != QDialog::Accepted) return {};
  return PathFromQt(window.selectedFiles().value(0));
}

}  // namespace kavr6

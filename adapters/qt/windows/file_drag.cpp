#include "adapters/qt/windows/file_drag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <string>
#include <vector>

#include "adapters/qt/base/text.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

std::vector<std::string> FilesOf(const QMimeData& dragged) {
  std::vector<std::string> files;
  for (const QUrl& url : dragged.urls()) files.push_back(PathFromQt(url.toLocalFile()));
  return files;
}

}  // namespace

void DragFiles(Form& form, QDropEvent& event) {
  const std::vector<std::string> files = FilesOf(*event.mimeData());
  if (!event.possibleActions().testFlag(Qt::CopyAction) || !form.WouldTake(files)) return event.ignore();
  // Whatever the other program proposes: after a move it would remove the file.
  event.setDropAction(Qt::CopyAction);
  event.accept();
  if (event.type() != QEvent::Drop) return;
  // Not in here: the other program waits for the end of the drop, and there may be a question first.
  form.Desk().Post([&form, files] { form.DropFiles(files); });
}

}  // namespace kavr6

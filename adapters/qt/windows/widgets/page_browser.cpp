#include "adapters/qt/windows/widgets/page_browser.h"

#include <QFileInfo>

namespace kavr6::widgets {
namespace {

QString Sentence(const QString& words, const QString& name) {
  return "<html><p>" + words + "</p><p>" + name + "</p></html>";
}

}  // namespace

PageBrowser::PageBrowser(QWidget* parent) : QTextBrowser(parent) { setOpenLinks(false); }

QVariant PageBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
  if (!name.isLocalFile()) {
    const QString address = name.toString().toHtmlEscaped();
    return Sentence("This address opens in the system's browser:",
                    "<a href=\"" + address + "\">" + address + "</a>");
  }
  if (!QFileInfo(name.toLocalFile()).isFile())
    return Sentence("This page is missing:", name.toLocalFile().toHtmlEscaped());
  return QTextBrowser::loadResource(type, name);
}

}  // namespace kavr6::widgets

#include "adapters/qt/windows/widgets/page_source.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include "adapters/qt/base/text.h"

namespace kavr6::widgets {
namespace {

QString Paragraph(const QString& words) { return "<p>" + words.toHtmlEscaped() + "</p>"; }

QString Message(const QString& words, const QString& name, const QString& advice) {
  return "<html><body>" + Paragraph(words) + Paragraph(name) + Paragraph(advice) + "</body></html>";
}

const QString kAdvice = "Install the program again, or copy the folder \"KAVR6 help\" beside it.";

/// What keeps the bytes from being a whole page, or an empty text.
QString DamageOf(const QByteArray& bytes) {
  if (bytes.trimmed().isEmpty()) return "it is empty";
  QXmlStreamReader reader(bytes);
  while (!reader.atEnd()) reader.readNext();
  return reader.hasError() ? QString("it breaks in line %1").arg(reader.lineNumber()) : QString();
}

bool HasPlace(const QString& html, const QString& fragment) {
  const QRegularExpression place("\\b(name|id)\\s*=\\s*[\"']" + QRegularExpression::escape(fragment) +
                                 "[\"']");
  return html.contains(place);
}

/// The page with a paragraph above all else.
QString WithNote(QString html, const QString& note) {
  static const QRegularExpression body("<body[^>]*>");
  const QRegularExpressionMatch match = body.match(html);
  return html.insert(match.hasMatch() ? match.capturedEnd() : 0, Paragraph(note) + "<hr/>");
}

}  // namespace

QString PageSource(const QString& path, const QString& fragment) {
  const QFileInfo info(path);
  if (!info.dir().exists()) return Message("The folder of the help pages is missing:", info.path(), kAdvice);
  if (!info.isFile()) return Message("This page is missing:", path, kAdvice);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return Message("This page cannot be read:", path, WithoutFullStop(file.errorString()) + ".");
  const QByteArray bytes = file.readAll();
  QString html = QString::fromUtf8(bytes);
  if (const QString damage = DamageOf(bytes); !damage.isEmpty())
    return WithNote(html, "This page is damaged: " + damage + ".  " + kAdvice);
  if (!fragment.isEmpty() && !HasPlace(html, fragment))
    return WithNote(html, "This page has no place named \"" + fragment + "\"; here is its beginning.");
  return html;
}

}  // namespace kavr6::widgets

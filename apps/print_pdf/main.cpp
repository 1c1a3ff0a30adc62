// Makes a PDF file of a document: one JSON object comes in on standard input, the file goes out on standard
// output. kavr6 starts it, so that this one needs no library that draws. The members of the object stand
// beside CommandMachine::MakePdf.
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPdfWriter>
#include <clocale>
#include <cstdio>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#endif

#include "adapters/qt/pages/paint_document.h"
#include "adapters/qt/pages/paper.h"

namespace kavr6 {
namespace {

std::string Text(const QJsonObject& object, const char* name) {
  return object[name].toString().toStdString();
}

PrintedDocument DocumentOf(const QJsonObject& object) {
  PrintedDocument document{
      {.title = Text(object, "title"), .file = Text(object, "file"), .remark = Text(object, "remark")}, {}};
  const QJsonArray lines = object["lines"].toArray();
  for (const auto& value : lines) {
    const QJsonObject line = value.toObject();
    document.lines.push_back(
        {line["column"].toInt(), LineOf(Text(line, "text")),
         FontOf(
             {.name = Text(line, "font"), .points = line["points"].toInt(), .bold = line["bold"].toBool()})});
  }
  return document;
}

/// Empty where it cannot be made.
QByteArray PdfOf(const PrintedDocument& document) {
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  QPdfWriter writer(&pdf);
  QPageLayout wholePage = writer.pageLayout();
  wholePage.setMode(QPageLayout::FullPageMode);
  writer.setPageLayout(wholePage);
  SetUpPage(writer, SystemPaper());
  writer.setTitle(QFileInfo(QString::fromStdString(document.margins.file)).completeBaseName());
  return PaintDocument(writer, document) ? pdf.data() : QByteArray();
}

int Run() {
  QFile in;
  QFile out;
  if (!in.open(stdin, QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly)) return 1;
  // The file's name may hold bytes that are no text.
  const QByteArray json = QString::fromUtf8(in.readAll()).toUtf8();
  const QJsonDocument document = QJsonDocument::fromJson(json);
  if (!document.isObject()) return 1;
  const QByteArray pdf = PdfOf(DocumentOf(document.object()));
  return !pdf.isEmpty() && out.write(pdf) == pdf.size() && out.flush() ? 0 : 1;
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
#ifdef Q_OS_WIN
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#else
  qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts as with a display, and none is needed
#endif
  const QGuiApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return kavr6::Run();
}

// Makes a PDF file of a document: one JSON object comes in on standard input, the file goes out on standard
// output. kavr6 starts it, so that this one needs no library that draws. The members of the object stand
// beside CommandMachine::MakePdf.
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPdfWriter>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <iostream>

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

/// What has gone wrong and what to do about it, as one line.
int Fail(const std::string& why) {
  std::cerr << "kavr6-print-pdf: " << why << (why.ends_with('.') ? "" : ".") << std::endl;
  return EXIT_FAILURE;
}

/// The toolkit gives up where it lacks a part; its other messages are for nobody here.
void TellFatal(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::_Exit(Fail(text.section('\n', 0, 0).toStdString()));
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
  if (!in.open(stdin, QIODevice::ReadOnly)) return Fail("standard input: " + in.errorString().toStdString());
  if (!out.open(stdout, QIODevice::WriteOnly))
    return Fail("standard output: " + out.errorString().toStdString());
  // The file's name may hold bytes that are no text.
  const QByteArray json = QString::fromUtf8(in.readAll()).toUtf8();
  const QJsonDocument document = QJsonDocument::fromJson(json);
  if (!document.isObject())
    return Fail("no document has come in; this program is started by kavr6 report --pdf");
  if (QFontInfo(QFont()).family().isEmpty())
    return Fail("there is no font; install one, such as DejaVu Sans");
  const QByteArray pdf = PdfOf(DocumentOf(document.object()));
  if (pdf.isEmpty()) return Fail("the pages cannot be drawn");
  if (out.write(pdf) == pdf.size() && out.flush()) return EXIT_SUCCESS;
  return Fail("the PDF file cannot be handed on: " + out.errorString().toStdString());
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
  qInstallMessageHandler(kavr6::TellFatal);
  const QGuiApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return kavr6::Run();
}

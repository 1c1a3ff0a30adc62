// Reports on the pages of PDF files, printed through the dialogs.
#include <QTest>
#include <QtPrintSupport>
#include <QtWidgets>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "adapters/qt/pages/page_flow.h"
#include "adapters/qt/print/qt_print_job.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr int kFlags = 0x18000C;

/// What `program` says about the file, line by line, runs of blanks as one.
QStringList Told(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished();
  QStringList lines;
  for (const QString& line :
       QString::fromUtf8(process.readAllStandardOutput()).split(QRegularExpression("[\n\f]")))
    if (!line.trimmed().isEmpty()) lines << line.simplified();
  return lines;
}

QStringList TextOf(const QString& pdf) { return Told("pdftotext", {"-layout", pdf, "-"}); }

/// Acts in each dialog that opens, by its class, and gives up what is there the second time.
struct User {
  QString file;
  std::function<void(QWidget&)> inPreview;
  QString log;
  bool looking = false;
  QPointer<QWidget> seen;
  QObject context;

  User() { ActSoon(); }
  void ActSoon() {
    QTimer::singleShot(5, &context, [this] { Act(); });
  }
  void Act() {
    ActSoon();  // first: what is done here may open the next dialog
    QWidget* const window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    if (window == seen) {
      if (looking) return;
      log += "left ";
      return void(QTest::keyClick(window, Qt::Key_Escape));
    }
    if (qobject_cast<QMessageBox*>(window) == nullptr) seen = window;
    if (auto* const box = qobject_cast<QMessageBox*>(window)) {
      log += "told ";
      box->accept();
    } else if (auto* const print = qobject_cast<QPrintDialog*>(window)) {
      log += "asked ";
      for (const auto option : {QAbstractPrintDialog::PrintPageRange, QAbstractPrintDialog::PrintSelection})
        EXPECT_FALSE(print->testOption(option));
      QTest::keyClick(print->findChild<QDialogButtonBox*>(), Qt::Key_F1);
      if (file.isEmpty()) return print->reject();
      print->findChild<QLineEdit*>("filename")->setText(file);
      print->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    } else if (inPreview) {
      log += "looks ";
      looking = true;
      std::exchange(inPreview, {})(*window);
      looking = false;
    }
  }
};

struct Print : testing::Test {
  QTemporaryDir folder;
  QString pdf = folder.filePath("report.pdf");
  User user;
  QtPrintJob job{[] { return nullptr; }, [this] { user.log += "helped "; }};

  Print() { user.file = pdf; }
  void Write(const std::vector<std::pair<int, std::string>>& lines) {
    job.SetMargins({.title = "The Title", .file = "machine.cnf", .remark = " (changed)"});
    job.SetFont({"Arial", 9, false});
    for (const auto& [column, text] : lines) job.PrintLine(column, text);
  }
  QStringList Printed(const std::vector<std::pair<int, std::string>>& lines) {
    QFile::remove(pdf);
    Write(lines);
    EXPECT_TRUE(job.AskForPrinter(kFlags));
    job.EndDoc();
    return TextOf(pdf);
  }
};

/// The lines of the reports in a transcript.
std::vector<std::pair<int, std::string>> LinesOf(const std::filesystem::path& transcript) {
  std::vector<std::pair<int, std::string>> lines;
  std::ifstream file(transcript);
  for (std::string line; std::getline(file, line);) {
    const std::size_t print = line.find("print: ");
    const std::size_t quote = line.find('"');
    if (print != std::string::npos && quote == print + 9)
      lines.emplace_back(line[print + 7] - '0', line.substr(quote + 1, line.size() - quote - 2));
  }
  return lines;
}

TEST_F(Print, EveryReportReadsTheSameInItsPdf) {
  int reports = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KAVR6_SOURCE "/tests/reports/scenarios")) {
    if (!entry.path().filename().string().starts_with("report_")) continue;
    ++reports;
    const auto lines = LinesOf(entry.path());
    QStringList got = Printed(lines);
    const qsizetype pages = got.removeAll("The Title machine.cnf (changed)");
    for (qsizetype page = 1; page <= pages; ++page)
      EXPECT_EQ(got.removeAll(QString("Page %1 of %2").arg(page).arg(pages)), 1);
    EXPECT_EQ(pages > 1, lines.size() > 60) << entry.path();
    for (const auto& [column, text] : lines) {
      const QString expected = QString::fromStdString(text).simplified();
      QString piece = got.isEmpty() ? QString() : got.takeFirst();
      while (piece.size() < expected.size() && !got.isEmpty()) piece += " " + got.takeFirst();
      ASSERT_EQ(piece.toStdString(), expected.toStdString()) << entry.path();
    }
    EXPECT_TRUE(got.isEmpty()) << entry.path();
  }
  EXPECT_GE(reports, 12);
}

TEST_F(Print, PaperIsThatOfTheCountryAndTheTextKeepsWithinIt) {
  const QByteArray before = qgetenv("LC_ALL");
  for (const auto& [locale, size] : {std::pair{"en_US.UTF-8", "612 x 792 pts (letter)"},
                                     {"fr_CA.UTF-8", "612 x 792 pts (letter)"},
                                     {"de_DE.UTF-8", "595 x 842 pts (A4)"}}) {
    qputenv("LC_ALL", locale);
    QtPrintJob fresh{[] { return nullptr; }, [] {}};
    fresh.SetFont({"Arial", 9, false});
    fresh.PrintLine(2, "text");
    EXPECT_TRUE(fresh.AskForPrinter(kFlags));
    fresh.EndDoc();
    EXPECT_TRUE(Told("pdfinfo", {pdf}).contains(QString("Page size: ") + size)) << locale;
    QFile::remove(pdf);
  }
  before.isNull() ? qunsetenv("LC_ALL") : qputenv("LC_ALL", before);
}

TEST(PageFlow, LongLinesGoOnAtTheirColumnAndLinesFlowOntoFurtherPages) {
  QImage device(600, 300, QImage::Format_RGB32);
  const QRectF area(40, 30, 500, 200);
  const QFont font("Arial", 9);
  const QString name(400, 'W');
  std::vector<PrintedLine> lines{
      {2, "first", font}, {4, name, font}, {0, "", font}, {6, QString("word ").repeated(90), font}};
  for (int i = 0; i < 30; ++i) lines.push_back({2, QString::number(i), font});
  const QFontMetricsF metrics(font, &device);
  std::map<qreal, QString> textAt;
  const std::vector<PageTexts> pages = FlowPages(lines, area, device);
  for (const PageTexts& page : pages) {
    qreal below = area.top();
    for (const PlacedText& placed : page) {
      textAt[placed.baseline.x()] += placed.text;
      EXPECT_LE(placed.baseline.x() + metrics.horizontalAdvance(placed.text.trimmed()), area.right() + 0.5);
      EXPECT_GE(placed.baseline.y() - metrics.ascent(), below - 0.01) << "no line stands on another";
      below = placed.baseline.y() + metrics.descent();
      EXPECT_LE(below, area.bottom() + 0.01);
    }
  }
  EXPECT_GT(pages.size(), 2U);
  const qreal character = metrics.averageCharWidth();
  EXPECT_EQ(textAt.size(), 3U);
  EXPECT_EQ(textAt[area.left() + 4 * character], name);
  EXPECT_EQ(textAt[area.left() + 6 * character], lines[3].text);
  EXPECT_TRUE(textAt[area.left() + 2 * character].startsWith("first0123"));
  EXPECT_EQ(FlowPages(lines, QRectF(0, 0, 1, 1), device).size(), FlowPages(lines, QRectF(), device).size());
}

TEST_F(Print, NothingIsPrintedWithoutAPrinterAndAFailureIsAnErrorOfItsOwn) {
  user.file.clear();
  Write({{2, "cancelled"}});
  EXPECT_FALSE(job.AskForPrinter(kFlags));
  EXPECT_EQ(user.log.toStdString(), "asked helped ");
  user.file = "/nowhere/report.pdf";
  EXPECT_FALSE(job.AskForPrinter(kFlags)) << "the dialog refuses the file, and is left";
  user.file = folder.filePath("gone/report.pdf");
  QDir(folder.path()).mkdir("gone");
  EXPECT_TRUE(job.AskForPrinter(kFlags));
  QDir(folder.filePath("gone")).removeRecursively();
  EXPECT_THROW(job.EndDoc(), RuntimeError);
  user.file = pdf;
  EXPECT_EQ(Printed({{2, "one\tline\n\u00e9"}}).mid(1, 1), QStringList("one line \u00e9"))
      << "nothing of the first";
}

TEST_F(Print, PreviewTurnsItsPagesAndPrints) {
  QStringList shown;
  const auto press = [](QWidget& window, const char* words) {
    for (auto* button : window.findChildren<QPushButton*>())
      if (button->text() == words && button->isEnabled()) return button->click();
  };
  user.inPreview = [&](QWidget& window) {
    const auto read = [&] {
      for (auto* label : window.findChildren<QLabel*>())
        if (label->text().startsWith("Page")) shown << label->text();
    };
    QTest::qWait(100);
    read();
    for (const char* words : {"&Next", "&Next", "Pre&vious", "Zoom &In", "Zoom &Out", "&Whole Page"})
      press(window, words), read();
    QTest::keyClick(window.findChild<QPrintPreviewWidget*>(), Qt::Key_F1);
    press(window, "&Print...");
  };
  Write(std::vector<std::pair<int, std::string>>(90, {2, "a line"}));
  job.ShowPreview(kFlags);
  EXPECT_EQ(user.log.toStdString(), "looks helped asked helped ");
  EXPECT_EQ(shown.join(", ").toStdString(),
            "Page 1 of 2, Page 2 of 2, Page 2 of 2, Page 1 of 2, Page 1 of 2, Page 1 of 2, Page 1 of 2");
  EXPECT_EQ(TextOf(pdf).count("a line"), 90);
}

}  // namespace
}  // namespace kavr6

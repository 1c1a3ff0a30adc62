// Long texts and help pages in their widgets.
#include <QTest>

#include "adapters/qt/base/text.h"
#include "tests/adapters/bound_form.h"

namespace kavr6 {
namespace {

using TextAndPages = Bound;

TEST_F(TextAndPages, LineIsTypedWithCrLfAndTheKeyIsToldWhenItIsReleased) {
  std::string log;
  form.line.KeyUp.Set([&](int code) {
    log += std::to_string(code) + ":" + form.line.Text() + ";";
    if (code == kEnterKey) form.line.SetText("");
  });
  QTest::keyRelease(window.line, Qt::Key_Return);  // of a press that was meant for another window
  QTest::keyClicks(window.line, "rev");
  QTest::keyClick(window.line, Qt::Key_Left);
  EXPECT_EQ(form.line.SelStart(), 2U);
  form.line.CtrlArrow.Set([&](int direction) { log += std::to_string(direction) + ";"; });
  QTest::keyClick(window.line, Qt::Key_Up, Qt::ControlModifier);
  QTest::keyClick(window.line, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(window.line, Qt::Key_Return, Qt::ControlModifier);  // types no line's end
  QTest::keyClick(window.line, Qt::Key_Enter);
  EXPECT_EQ(log, "82:r;69:re;86:rev;0:rev;-1;0:rev;1;0:rev;0:rev;0:rev;13:re\r\nv;");
  EXPECT_EQ(window.line->toPlainText(), "");
  QTest::keyClick(window.line, Qt::Key_Tab);
  EXPECT_TRUE(window.record->hasFocus()) << "the tab key leaves a text";
  form.line.SetEnabled(false);
  form.line.SetText("\u00e9\r\nb");
  form.line.SetSelection(4, 1);
  EXPECT_EQ(window.line->textCursor().selectedText(), "b");
}

struct Record : TextAndPages {
  /// News come to the screen a little later.
  bool Shows(const QString& text) {
    return QTest::qWaitFor([&] { return window.record->toPlainText() == text; });
  }
  QString FirstLineInView() { return window.record->cursorForPosition({}).block().text(); }
};

TEST_F(Record, KeepsWhatTheUserHasSelectedWhileItGrows) {
  form.record.SetText("one\r\n");
  ASSERT_TRUE(Shows("one\n"));
  int rewritten = 0;
  QObject::connect(window.record->document(), &QTextDocument::contentsChange,
                   [&](int at, int removed, int) { rewritten += at == 0 || removed > 0 ? 1 : 0; });
  window.record->selectAll();
  form.record.Append("two\r");
  form.record.Append("\nthree", true);
  form.record.Append("four");
  form.record.CaretToEnd();
  ASSERT_TRUE(Shows("one\ntwo\nthreefour"));
  EXPECT_EQ(rewritten, 0);
  window.record->copy();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "one\n");
  std::string bold;
  for (int at = 1; at <= 17; ++at) {
    QTextCursor cursor(window.record->document());
    cursor.setPosition(at);
    bold += cursor.charFormat().fontWeight() == QFont::Bold ? 'x' : '-';
  }
  EXPECT_EQ(bold, "-------xxxxxx----");
  form.record.DropFront(2);
  ASSERT_TRUE(Shows("e\ntwo\nthreefour"));
  EXPECT_EQ(window.record->textCursor().selectedText(), u"e\u2029");
  form.record.SetText("three");
  EXPECT_TRUE(Shows("three"));
  QTest::keyClicks(window.record, "x");
  EXPECT_EQ(form.record.Text() + window.record->toPlainText().toStdString(), "threethree");
}

TEST_F(Record, StaysAtItsEndUnlessTheUserHasScrolledUp) {
  QString lines;
  for (int line = 1; line <= 300; ++line) lines += QString("line %1\n").arg(line);
  form.record.Append(FromQt(QString(lines).replace("\n", "\r\n")));
  form.record.CaretToEnd();
  ASSERT_TRUE(Shows(lines));
  QScrollBar* const bar = window.record->verticalScrollBar();
  EXPECT_EQ(bar->value(), bar->maximum());
  bar->setValue(150);
  EXPECT_EQ(FirstLineInView(), "line 151");
  form.record.Append("end");
  form.record.DropFront(std::string_view("line 1\r\nline 2\r\n").size());
  form.record.CaretToEnd();
  ASSERT_TRUE(Shows(lines.section('\n', 2) + "end"));
  EXPECT_EQ(FirstLineInView(), "line 151");
  bar->setValue(bar->maximum());
  form.record.Append("\r\n\r\n");
  form.record.CaretToEnd();
  ASSERT_TRUE(Shows(lines.section('\n', 2) + "end\n\n"));
  EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(TextAndPages, PagesFollowLinksAndGoBackAndTellTheirTitles) {
  const QTemporaryDir folder;
  const auto write = [&](const char* name, const char* html) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(html);
  };
  write("contact us.html",
        "<html><head><title>Contact</title></head><body><a href='index.html#low'>i</a></body></html>");
  const QString lines = QString("<p>x</p>").repeated(200);
  write("index.html", ("<html><head><title>Index</title></head><body>" + lines +
                       "<a name='low'></a><p>low</p></body></html>")
                          .toLatin1());
  const std::string base = folder.path().toStdString() + "/";
  std::string log;
  form.pages.TitleChanged.Set([&] { log += form.pages.Title() + ";"; });
  form.pages.CanGoBackChanged.Set([&] { log += form.pages.CanGoBack() ? "can;" : "cannot;"; });
  form.pages.Navigate(base + "contact us.html");
  emit window.pages->anchorClicked(window.pages->source().resolved(QUrl("index.html#low")));
  EXPECT_EQ(form.pages.Address(), base + "index.html#low");
  EXPECT_GT(window.pages->verticalScrollBar()->value(), 0) << "reading begins at the fragment";
  window.pages->backward();
  EXPECT_EQ(log, "Contact;;Index;can;;Contact;cannot;");
  form.pages.Navigate(base + "none.html");
  EXPECT_EQ(window.pages->toPlainText().toStdString(), "This page is missing:\n" + base + "none.html");
  form.pages.GoBack();
  EXPECT_EQ(window.pages->documentTitle(), "Contact");

  QTextBrowser system;  // takes what the program leaves to the system's own browser
  QDesktopServices::setUrlHandler("https", &system, "setSource");
  form.pages.Navigate("https://a.example/b");
  EXPECT_EQ(system.source(), QUrl("https://a.example/b"));
  EXPECT_TRUE(window.pages->toPlainText().endsWith("browser:\nhttps://a.example/b"));
  emit window.pages->anchorClicked(QUrl("https://a.example/c"));
  EXPECT_EQ(system.source(), QUrl("https://a.example/c"));
  EXPECT_EQ(form.pages.Address(), "https://a.example/b");
  QDesktopServices::unsetUrlHandler("https");
}

}  // namespace
}  // namespace kavr6

// Long texts and help pages in their widgets.
#include <QTest>

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
  QTest::keyClick(window.line, Qt::Key_Enter);
  EXPECT_EQ(log, "82:r;69:re;86:rev;0:rev;13:re\r\nv;");
  EXPECT_EQ(window.line->toPlainText(), "");
  QTest::keyClick(window.line, Qt::Key_Tab);
  EXPECT_TRUE(window.record->hasFocus()) << "the tab key leaves a text";
  form.line.SetEnabled(false);
  form.line.SetText("\u00e9\r\nb");
  form.line.SetSelection(4, 1);
  EXPECT_EQ(window.line->textCursor().selectedText(), "b");
}

TEST_F(TextAndPages, RecordGrowsAtItsEndAndKeepsWhatTheUserHasSelected) {
  form.record.SetText("one\r\n");
  int rewritten = 0;
  QObject::connect(window.record->document(), &QTextDocument::contentsChange,
                   [&](int at, int removed, int) { rewritten += at == 0 || removed > 0 ? 1 : 0; });
  window.record->selectAll();
  window.record->copy();
  form.record.Append("two\r");
  form.record.Append("\nthree");
  EXPECT_EQ(window.record->toPlainText(), "one\ntwo\nthree");
  EXPECT_EQ(rewritten, 0);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "one\n");
  EXPECT_EQ(window.record->textCursor().selectionStart(), 0);
  form.record.CaretToEnd();
  EXPECT_EQ(window.record->textCursor().position(), 13);
  form.record.SetText("three");
  EXPECT_EQ(window.record->toPlainText(), "three");
  QTest::keyClicks(window.record, "x");
  EXPECT_EQ(form.record.Text() + window.record->toPlainText().toStdString(), "threethree");
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

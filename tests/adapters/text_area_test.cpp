// Long texts in their widgets.
#include <QTest>

#include "adapters/qt/base/text.h"
#include "tests/adapters/bound_form.h"

namespace kavr6 {
namespace {

using Texts = Bound;

TEST_F(Texts, LineIsTypedWithCrLfAndTheKeyIsToldWhenItIsReleased) {
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

struct Record : Texts {
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

}  // namespace
}  // namespace kavr6

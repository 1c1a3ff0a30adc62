// Help pages in their widget.
#include <QTest>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/widgets/find_bar.h"
#include "tests/adapters/bound_form.h"

namespace kavr6 {
namespace {

struct Pages : Bound {
  const QTemporaryDir folder;
  const std::string base = PathFromQt(folder.path() + "/");

  void Write(const char* name, const QString& body) {
    WriteAll(name, "<html><body>" + body + "</body></html>");
  }
  void WriteAll(const char* name, const QString& text) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
  }
  /// What a person reads on that page, or on the missing one.
  std::string Read(const std::string& page) {
    form.pages.Navigate(base + page);
    return window.pages->toPlainText().replace(folder.path(), "F").toStdString();
  }
  void Link(const char* address) {
    emit window.pages->anchorClicked(window.pages->source().resolved(QUrl(address)));
  }
  int Place() { return window.pages->verticalScrollBar()->value(); }
};

TEST_F(Pages, FollowLinksAndGoBackToWhereTheReaderWas) {
  WriteAll("contact us.html", "<html><head><title>Contact</title></head><body><p>c</p></body></html>");
  WriteAll("index.html", "<html><head><title>Index</title></head><body>" + QString("<p>x</p>").repeated(200) +
                             "<p><a name='low'></a>low</p><p>y</p></body></html>");
  std::string log;
  form.pages.CanGoBackChanged.Set([&] { log += form.pages.CanGoBack() ? "can;" : "cannot;"; });
  form.pages.Navigate(base + "contact us.html");
  Link("index.html#low");
  EXPECT_EQ(form.pages.Address(), base + "index.html#low");
  const int low = Place();
  EXPECT_GT(low, 0) << "reading begins at the fragment";
  window.pages->verticalScrollBar()->setValue(7);
  Link("index.html#low");
  EXPECT_EQ(Place(), low) << "a link to the place itself leads there again";
  window.pages->verticalScrollBar()->setValue(7);
  Link("contact%20us.html");
  window.pages->backward();
  EXPECT_EQ(Place(), 7);
  window.pages->backward();
  EXPECT_EQ(form.pages.Address(), base + "contact us.html");
  EXPECT_EQ(log, "can;cannot;");
  Link("mailto:a@b.example");
  Link("https://a.example/c");
  EXPECT_EQ(desktop.Addresses(), (std::vector<std::string>{"mailto:a@b.example", "https://a.example/c"}));
  EXPECT_EQ(form.pages.Address(), base + "contact us.html");
}

TEST_F(Pages, AreLaidOutForOneWidthHoweverLongTheyAre) {
  Write("short.html", "<p>x</p>");
  Write("long.html", QString("<p>x</p>").repeated(200));
  form.pages.Navigate(base + "short.html");
  const int width = window.pages->viewport()->width();
  form.pages.Navigate(base + "long.html");
  EXPECT_EQ(window.pages->viewport()->width(), width) << "the page has been laid out twice";
}

TEST_F(Pages, SayWhatIsWrongWithThem) {
  Write("good.html", "<p><a name=\"here\"></a>good</p>");
  WriteAll("torn.html", "<html><body><p>begin</p>\n<p>tor");
  WriteAll("empty.html", " ");
  const QString advice = "Install the program again, or copy the folder \"KAVR6 help\" beside it.";
  const std::string end = advice.toStdString();
  EXPECT_EQ(Read("good.html#here"), "good");
  EXPECT_EQ(Read("good.html#gone"), "This page has no place named \"gone\"; here is its beginning.\n\ngood");
  EXPECT_EQ(Read("good.html"), "good");
  EXPECT_EQ(Read("none.html"), "This page is missing:\nF/none.html\n" + end);
  EXPECT_EQ(Read("no/none.html"), "The folder of the help pages is missing:\nF/no\n" + end);
  EXPECT_EQ(Read("torn.html"), "This page is damaged: it breaks in line 2. " + end + "\n\nbegin\ntor");
  EXPECT_EQ(Read("empty.html"), "This page is damaged: it is empty. " + end + "\n");
}

TEST_F(Pages, SearchGoesBothWaysAroundTheEndsAndTellsWhatIsNotThere) {
  Write("a.html", "<p>One two one</p>");
  Read("a.html");
  window.pages->setFocus();
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&window, key, modifiers);
    auto* const bar = window.findChild<widgets::FindBar*>();
    return QString("%1 %2 %3")
        .arg(window.pages->textCursor().selectionStart())
        .arg(window.pages->textCursor().selectedText(),
             bar->isHidden() ? "closed" : bar->findChild<QLabel*>("outcome")->text())
        .toStdString();
  };
  EXPECT_EQ(press(Qt::Key_F, Qt::ControlModifier), "0  ");
  auto* const words = window.findChild<widgets::FindBar*>()->findChild<QLineEdit*>();
  QTest::keyClicks(words, "one");
  EXPECT_EQ(press(Qt::Key_F3), "8 one ");
  EXPECT_EQ(press(Qt::Key_F3), "0 One Found around the page's end");
  EXPECT_EQ(press(Qt::Key_F3, Qt::ShiftModifier), "8 one Found around the page's end");
  QTest::keyClick(words, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(window.pages->textCursor().selectionStart(), 0);
  QTest::keyClicks(words, "s");
  EXPECT_EQ(press(Qt::Key_F3), "0  Not found");
  QTest::keyClick(words, Qt::Key_Escape);
  EXPECT_TRUE(window.findChild<widgets::FindBar*>()->isHidden());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(Pages, TextAndPicturesFollowZoomAndPalette) {
  WriteAll("bar.svg",
           "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 20 10'>"
           "<rect width='20' height='10' fill='currentColor'/></svg>");
  Write("a.html", "<p><img src='bar.svg' width='40' alt='a bar'/></p>");
  Write("b.html", "<p><img src='no.svg' alt='a lamp'/></p>");
  Read("a.html");
  window.pages->resize(400, 300);
  const auto inked = [&](QColor ink) {
    const QImage image = window.pages->viewport()->grab().toImage();
    QRect found;
    for (int y = 0; y < image.height() / 2; ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y) == ink) found |= QRect(x, y, 1, 1);
    return found.size();
  };
  QPalette palette(Qt::white);
  palette.setColor(QPalette::Text, QColor(1, 2, 3));
  window.pages->setPalette(palette);
  EXPECT_EQ(inked(QColor(1, 2, 3)), QSize(40, 20));
  palette.setColor(QPalette::Text, QColor(200, 100, 50));
  window.pages->setPalette(palette);
  EXPECT_EQ(inked(QColor(200, 100, 50)), QSize(40, 20));
  const double size = window.pages->font().pointSizeF();
  window.pages->setFocus();
  for (int i = 0; i < 2; ++i) QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(window.pages->font().pointSizeF() / size, 1.21, 0.01);
  EXPECT_EQ(inked(QColor(200, 100, 50)), QSize(48, 24));
  for (int i = 0; i < 40; ++i) QTest::keyClick(&window, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_LT(inked(QColor(200, 100, 50)).width(), 400) << "a picture is no wider than the page";
  QTest::keyClick(&window, Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(inked(QColor(200, 100, 50)), QSize(40, 20));
  Read("b.html");
  EXPECT_GT(inked(QColor(200, 100, 50)).width(), 100) << "words in place of a missing picture";
}

}  // namespace
}  // namespace kavr6

// A view of HTML pages on the disk.
#pragma once

#include <QTextBrowser>

namespace kavr6::widgets {

class FindBar;
class PagePictures;

/// Shows the page that it is told and follows no link by itself. What is wrong with a page it says in its
/// place, see PageSource. Ctrl with the wheel, plus, minus or 0 changes the size of texts and pictures;
/// Ctrl+F opens a line below the page that searches it, F3 goes on. Texts and pictures follow the palette.
class PageBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit PageBrowser(QWidget* parent = nullptr);
  /// Reads the page, also when it is on show already, and goes to the place in it.
  void showPage(const QUrl& url);
  /// How far the page is scrolled.
  int place() const;
  void goTo(int place);

  void backward() override { emit backWanted(); }
  void forward() override {}
  void home() override {}
  void reload() override {}

 signals:
  /// The user asks for the page before, by key or mouse.
  void backWanted();

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void addKeys();
  void zoomTo(int level);
  void find(bool backward);
  void openFindBar();

  PagePictures* pictures_;
  FindBar* findBar_ = nullptr;  // made when it is first asked for
  QString fragment_;            // where reading begins on the page that is being loaded
  int level_ = 0;
};

}  // namespace kavr6::widgets

// A view of HTML pages on the disk.
#pragma once

#include <QTextBrowser>

namespace kavr6::widgets {

/// Shows the page that it is told and follows no link by itself. A page that is missing, and an address in
/// the web, which it does not load, show as a sentence that names them.
class PageBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit PageBrowser(QWidget* parent = nullptr);
  void showPage(const QUrl& url) { setSource(url); }

  void backward() override { emit backWanted(); }
  void forward() override {}
  void home() override {}
  void reload() override {}

 signals:
  /// The user asks for the page before, by key or mouse.
  void backWanted();

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace kavr6::widgets

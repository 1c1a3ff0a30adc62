// A look at a document before it is printed.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <functional>

namespace kavr6 {

/// Shows the pages that `paint` makes for a printer, one at a time. Its "Print..." does `print`, which tells
/// whether the window is to close.
class PreviewWindow : public QDialog {
 public:
  PreviewWindow(QPrinter& printer, const std::function<void(QPrinter*)>& paint, std::function<bool()> print,
                QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QPushButton* Add(const char* words, const QKeySequence& key, const std::function<void()>& clicked);
  void Turn(int pages);
  void ShowPage();

  QPrintPreviewWidget pages_;
  QLabel number_;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
};

}  // namespace kavr6

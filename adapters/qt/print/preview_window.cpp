#include "adapters/qt/print/preview_window.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

namespace kavr6 {
namespace {

// Parts of the screen.
constexpr qreal kHeight = 0.8;
constexpr qreal kWidth = 0.6;

}  // namespace

PreviewWindow::PreviewWindow(QPrinter& printer, const std::function<void(QPrinter*)>& paint,
                             std::function<bool()> print, QWidget* parent)
    : QDialog(parent), pages_(&printer) {
  setWindowTitle("Print Preview");
  setObjectName("PrintPreview");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* const column = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  column->addWidget(&pages_, 1);
  column->addLayout(row);
  row->addWidget(Add("Zoom &In", QKeySequence::ZoomIn, [this] { pages_.zoomIn(); }));
  row->addWidget(Add("Zoom &Out", QKeySequence::ZoomOut, [this] { pages_.zoomOut(); }));
  row->addWidget(Add("&Whole Page", {}, [this] { pages_.fitInView(); }));
  row->addStretch();
  row->addWidget(previous_ = Add("Pre&vious", {}, [this] { Turn(-1); }));
  row->addWidget(&number_);
  row->addWidget(next_ = Add("&Next", {}, [this] { Turn(1); }));
  row->addStretch();
  row->addWidget(Add("&Print...", QKeySequence::Print, [this, print = std::move(print)] {
    if (print()) return accept();
    pages_.updatePreview();  // the paper may be another one now
  }));
  row->addWidget(Add("Close", {}, [this] { reject(); }));
  pages_.setViewMode(QPrintPreviewWidget::SinglePageView);
  connect(&pages_, &QPrintPreviewWidget::paintRequested, paint);
  connect(&pages_, &QPrintPreviewWidget::previewChanged, this, [this] { ShowPage(); });
  resize(QSizeF(screen()->availableSize().width() * kWidth, screen()->availableSize().height() * kHeight)
             .toSize());
}

QPushButton* PreviewWindow::Add(const char* words, const QKeySequence& key,
                                const std::function<void()>& clicked) {
  auto* const button = new QPushButton(words, this);
  if (!key.isEmpty()) button->setShortcut(key);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

void PreviewWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  pages_.fitToWidth();
  pages_.setFocus();
}

void PreviewWindow::Turn(int pages) {
  pages_.setCurrentPage(pages_.currentPage() + pages);
  ShowPage();
}

void PreviewWindow::ShowPage() {
  const int page = pages_.currentPage();
  number_.setText(QString("Page %1 of %2").arg(page).arg(pages_.pageCount()));
  for (QPushButton* turn : {previous_, next_}) turn->setVisible(pages_.pageCount() > 1);
  previous_->setEnabled(page > 1);
  next_->setEnabled(page < pages_.pageCount());
}

}  // namespace kavr6

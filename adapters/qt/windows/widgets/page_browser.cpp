#include "adapters/qt/windows/widgets/page_browser.h"

#include <QBoxLayout>
#include <QFontInfo>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "adapters/qt/windows/widgets/find_bar.h"
#include "adapters/qt/windows/widgets/page_pictures.h"
#include "adapters/qt/windows/widgets/page_source.h"

namespace kavr6::widgets {
namespace {

constexpr double kZoomStep = 1.1;
constexpr int kLeastLevel = -6;  // about half as large
constexpr int kMostLevel = 12;   // about three times
constexpr double kMargin = 12;   // pixels around a page

}  // namespace

PageBrowser::PageBrowser(QWidget* parent) : QTextBrowser(parent), pictures_(new PagePictures(*this)) {
  setOpenLinks(false);
  document()->setDocumentMargin(kMargin);
  // One that comes and goes changes the width: each page would be laid out twice.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  addKeys();
}

void PageBrowser::addKeys() {
  const auto on = [this](const QKeySequence& keys, const std::function<void()>& act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
  };
  on(Qt::CTRL | Qt::Key_Plus, [this] { zoomTo(level_ + 1); });
  on(Qt::CTRL | Qt::Key_Equal, [this] { zoomTo(level_ + 1); });  // the same key without Shift
  on(Qt::CTRL | Qt::Key_Minus, [this] { zoomTo(level_ - 1); });
  on(Qt::CTRL | Qt::Key_0, [this] { zoomTo(0); });
  on(Qt::CTRL | Qt::Key_F, [this] { openFindBar(); });
  on(Qt::Key_F3, [this] { find(false); });
  on(Qt::SHIFT | Qt::Key_F3, [this] { find(true); });
}

void PageBrowser::showPage(const QUrl& url) {
  const bool onShow = source().adjusted(QUrl::RemoveFragment) == url.adjusted(QUrl::RemoveFragment);
  pictures_->setPage(url);
  fragment_ = url.fragment(QUrl::FullyDecoded);
  setSource(url);
  if (onShow) QTextBrowser::reload();
}

int PageBrowser::place() const { return verticalScrollBar()->value(); }
void PageBrowser::goTo(int place) { verticalScrollBar()->setValue(place); }

QVariant PageBrowser::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::HtmlResource) {
    document()->setDefaultStyleSheet("a { color: " + palette().color(QPalette::Link).name() + "; }");
    return PageSource(name.toLocalFile(), fragment_);
  }
  return QTextBrowser::loadResource(type, name);
}

void PageBrowser::zoomTo(int level) {
  level_ = std::clamp(level, kLeastLevel, kMostLevel);
  const double zoom = std::pow(kZoomStep, level_);
  const int most = verticalScrollBar()->maximum();
  const double share = most > 0 ? static_cast<double>(place()) / most : 0;
  pictures_->setZoom(zoom);
  QFont font = parentWidget() == nullptr ? QFont() : parentWidget()->font();
  font.setPointSizeF(QFontInfo(font).pointSizeF() * zoom);
  setFont(font);
  goTo(qRound(share * verticalScrollBar()->maximum()));
}

void PageBrowser::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
  if (event->angleDelta().y() != 0) zoomTo(level_ + (event->angleDelta().y() > 0 ? 1 : -1));
  event->accept();
}

void PageBrowser::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || findBar_ == nullptr || findBar_->isHidden())
    return QTextBrowser::keyPressEvent(event);
  findBar_->put(true);
  event->accept();
}

void PageBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
  // The colour of links is taken when a page is read.
  const int at = place();
  QTextBrowser::reload();
  goTo(at);
}

void PageBrowser::openFindBar() {
  auto* const column =
      parentWidget() == nullptr ? nullptr : qobject_cast<QBoxLayout*>(parentWidget()->layout());
  if (findBar_ == nullptr && column != nullptr) {
    findBar_ = new FindBar(*this);
    column->addWidget(findBar_);
  }
  if (findBar_ != nullptr) findBar_->open();
}

void PageBrowser::find(bool backward) {
  if (findBar_ == nullptr || findBar_->isHidden()) return openFindBar();
  findBar_->find(backward);
}

}  // namespace kavr6::widgets

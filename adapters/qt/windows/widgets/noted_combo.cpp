#include "adapters/qt/windows/widgets/noted_combo.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "adapters/qt/windows/widgets/row_notes.h"

namespace kavr6::widgets {

NotedCombo::NotedCombo(QWidget* parent) : QComboBox(parent) {
  setItemDelegate(new RowNotes(RowNotes::Width::Whole, this));
  view()->setTextElideMode(Qt::ElideNone);
  view()->installEventFilter(this);
}

void NotedCombo::showPopup() {
  emit opens();
  widen();
  QComboBox::showPopup();
}

void NotedCombo::widen() {
  const int frame = 2 * view()->frameWidth() + view()->verticalScrollBar()->sizeHint().width();
  const int wanted = view()->sizeHintForColumn(0) + frame;
  view()->setMinimumWidth(std::min(wanted, screen()->availableGeometry().width()));
}

bool NotedCombo::eventFilter(QObject* watched, QEvent* event) {
  if (watched == view() && event->type() == QEvent::Hide) emit closed();
  return QComboBox::eventFilter(watched, event);
}

}  // namespace kavr6::widgets

// Lists, check boxes, option buttons, sliders.
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/filter_list.h"
#include "adapters/qt/windows/widgets/noted_combo.h"
#include "adapters/qt/windows/widgets/row_notes.h"
#include "platform/controls.h"

namespace kavr6 {
namespace {

// All rows at once: lists of thousands are filled while the user waits.
template <class W>
void FillRows(W& widget, const ListBox& list) {
  QStringList rows;
  rows.reserve(list.Count());
  for (int row = 0; row < list.Count(); ++row) rows.append(ToQt(list.Item(row)));
  widget.clear();
  widget.addItems(rows);
}

/// What stands beside the rows, which themselves stay: the list may be open.
void FillNotes(QAbstractItemModel& model, const ListBox& list) {
  const auto show = [&model](int row, const QString& text, int role) {
    const QModelIndex index = model.index(row, 0);
    if (index.data(role).toString() != text) model.setData(index, text, role);
  };
  for (int row = 0; row < list.Count(); ++row) {
    const QString note = ToQt(list.ItemNote(row));
    show(row, ToQt(list.ItemToolTip(row)), Qt::ToolTipRole);
    show(row, note, widgets::kNoteRole);
    if (!note.isEmpty()) show(row, widgets::spokenRow(ToQt(list.Item(row)), note), Qt::AccessibleTextRole);
  }
}

int SelectedRow(const QListWidget& view) {
  const QList<QListWidgetItem*> selected = view.selectedItems();
  return selected.isEmpty() ? -1 : view.row(selected.first());
}
int SelectedRow(const QComboBox& combo) { return combo.currentIndex(); }

void SelectRow(QListWidget& view, int row) {
  view.setCurrentRow(row);
  if (row < 0) view.clearSelection();
}
void SelectRow(QComboBox& combo, int row) { combo.setCurrentIndex(row); }

template <class W>
RefreshView ShowList(const ListBox& list, W& widget) {
  return [&list, &widget, shownRevision = -1, shownNotes = 0]() mutable {
    const QSignalBlocker silence(widget);
    const bool refill = std::exchange(shownRevision, list.Revision()) != list.Revision();
    if (refill) FillRows(widget, list);
    if (std::exchange(shownNotes, list.NoteRevision()) != list.NoteRevision() || refill)
      FillNotes(*widget.model(), list);
    if (SelectedRow(widget) != list.ListIndex()) SelectRow(widget, list.ListIndex());
  };
}

RefreshView BindCombo(ListBox& list, QComboBox& combo, const UserAction& act) {
  QObject::connect(&combo, &QComboBox::activated, &combo,
                   [&list, act](int row) { act([&list, row] { list.Select(row); }); });
  return ShowList(list, combo);
}

RefreshView BindNotedCombo(ListBox& list, widgets::NotedCombo& combo, const UserAction& act) {
  QObject::connect(&combo, &widgets::NotedCombo::opens, &combo,
                   [&list, act] { act([&list] { list.Open(); }); });
  QObject::connect(&combo, &widgets::NotedCombo::closed, &combo,
                   [&list, act] { act([&list] { list.Close(); }); });
  return BindCombo(list, combo, act);
}

RefreshView BindFilterList(ListBox& list, widgets::FilterList& view, const UserAction& act) {
  view.follow(list);
  QObject::connect(&view, &widgets::FilterList::picked, &view,
                   [&list, act](int row) { act([&list, row] { list.Select(row); }); });
  QObject::connect(&view, &widgets::FilterList::pickedTwice, &view,
                   [&list, act](int row) { act([&list, row] { list.DoubleClick(row); }); });
  // Not as a user's act: the toolkit moves the focus by itself too.
  QObject::connect(&view, &widgets::FilterList::fieldEntered, &view,
                   [&list, act] { act([&list] { list.Focus(); }); });
  QWidget::setTabOrder(view.previousInFocusChain(), &view.field());
  QWidget::setTabOrder(&view.field(), &view);
  return [&view] { view.refresh(); };
}

RefreshView BindListView(ListBox& list, QListWidget& view, const UserAction& act) {
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  QObject::connect(&view, &QListWidget::itemSelectionChanged, &view, [&list, &view, act] {
    act([&list, &view] {
      if (const int row = SelectedRow(view); row >= 0) list.Select(row);
    });
  });
  QObject::connect(&view, &QListWidget::itemDoubleClicked, &view,
                   [&list, &view, act](const QListWidgetItem* item) {
                     act([&list, row = view.row(item)] { list.DoubleClick(row); });
                   });
  return ShowList(list, view);
}

/// The toolkit's group for the buttons of a model's group: its arrow keys move within it.
QButtonGroup& ButtonGroupOf(const OptionButton& option, const QRadioButton& button) {
  const QString name = "group" + QString::number(reinterpret_cast<quintptr>(&option.Group()));
  QWidget* const window = button.window();
  auto* group = window->findChild<QButtonGroup*>(name);
  if (group == nullptr) {
    group = new QButtonGroup(window);
    group->setObjectName(name);
  }
  return *group;
}

}  // namespace

RefreshView BindListBox(Control& control, QObject& target, const UserAction& act) {
  auto& list = static_cast<ListBox&>(control);
  if (auto* const combo = qobject_cast<widgets::NotedCombo*>(&target))
    return BindNotedCombo(list, *combo, act);
  if (auto* const view = qobject_cast<widgets::FilterList*>(&target)) return BindFilterList(list, *view, act);
  if (auto* const combo = qobject_cast<QComboBox*>(&target); combo != nullptr && !combo->isEditable())
    return BindCombo(list, *combo, act);
  if (auto* const view = qobject_cast<QListWidget*>(&target)) return BindListView(list, *view, act);
  return {};
}

RefreshView BindCheckBox(Control& control, QObject& target, const UserAction& act) {
  auto* const box = qobject_cast<QCheckBox*>(&target);
  if (box == nullptr) return {};
  auto& check = static_cast<CheckBox&>(control);
  QObject::connect(box, &QCheckBox::clicked, box, [&check, act] { act([&check] { check.Click(); }); });
  return [&check, box] {
    const QSignalBlocker silence(box);
    box->setChecked(check.Value());
  };
}

RefreshView BindOptionButton(Control& control, QObject& target, const UserAction& act) {
  auto* const button = qobject_cast<QRadioButton*>(&target);
  if (button == nullptr) return {};
  auto& option = static_cast<OptionButton&>(control);
  QButtonGroup* const group = &ButtonGroupOf(option, *button);
  group->addButton(button);
  QObject::connect(button, &QRadioButton::clicked, button,
                   [&option, act] { act([&option] { option.Click(); }); });
  return [&option, button, group] {
    // Tab goes to the set one of a group; left alone, the toolkit sees to that only after the first visit.
    button->setFocusPolicy(option.Value() ? Qt::StrongFocus : Qt::ClickFocus);
    if (button->isChecked() == option.Value()) return;
    const QSignalBlocker silence(button);
    group->setExclusive(false);  // the model alone says which of them is set
    button->setChecked(option.Value());
    group->setExclusive(true);
  };
}

RefreshView BindSlider(Control& control, QObject& target, const UserAction& act) {
  auto* const view = qobject_cast<QSlider*>(&target);
  if (view == nullptr) return {};
  auto& slider = static_cast<Slider&>(control);
  QObject::connect(view, &QSlider::valueChanged, view,
                   [&slider, act](int value) { act([&slider, value] { slider.Scroll(value); }); });
  return [&slider, view] {
    const QSignalBlocker silence(view);
    const SliderRange& range = slider.Range();
    view->setRange(range.min, range.max);
    view->setSingleStep(range.smallStep);
    view->setPageStep(range.largeStep);
    if (view->tickInterval() != range.tickSpacing) view->setTickInterval(range.tickSpacing);
    view->setValue(slider.Value());
  };
}

}  // namespace kavr6

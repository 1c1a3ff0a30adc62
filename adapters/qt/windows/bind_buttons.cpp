// What is clicked: buttons, picture buttons, hot spots, menu commands.
#include <QAction>
#include <QPushButton>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/hot_spot.h"
#include "adapters/qt/windows/widgets/image_button.h"
#include "adapters/qt/windows/widgets/mark_button.h"
#include "platform/controls.h"

namespace kavr6 {
namespace {

void ConnectClick(ClickableControl& control, QAbstractButton& button, const UserAction& act) {
  QObject::connect(&button, &QAbstractButton::clicked, &button,
                   [&control, act] { act([&control] { control.Click(); }); });
}

/// Shows a caption on what has mnemonics. The design's own text, with its mnemonic and in a menu with its
/// shortcut column, is taken wherever it reads the same.
template <class W>
void ShowCaption(W& widget, const QString& design, const std::string& caption) {
  if (caption.empty()) return;
  const auto reads = [](const QString& text) { return ShownCaption(text.section('\t', 0, 0)); };
  const QString shown = ShownCaption(ToQt(caption));
  if (reads(widget.text()) != shown) widget.setText(reads(design) == shown ? design : WithoutMnemonic(shown));
}

}  // namespace

RefreshView BindButton(Control& control, QObject& target, const UserAction& act) {
  auto* const view = qobject_cast<QPushButton*>(&target);
  if (view == nullptr) return {};
  auto& button = static_cast<Button&>(control);
  // Enter and Esc are looked after by the window.
  view->setAutoDefault(false);
  view->setDefault(button.ButtonRole() == Button::Role::Default);
  ConnectClick(button, *view, act);
  auto* const marked = qobject_cast<widgets::MarkButton*>(view);
  return [&button, view, marked, design = view->text()] {
    ShowCaption(*view, design, button.Caption());
    if (marked != nullptr) marked->setMark(ToQt(button.Mark()));
  };
}

RefreshView BindImageButton(Control& control, QObject& target, const UserAction& act) {
  auto* const view = qobject_cast<widgets::ImageButton*>(&target);
  if (view == nullptr) return {};
  auto& button = static_cast<ImageButton&>(control);
  QObject::connect(view, &QAbstractButton::pressed, view,
                   [&button, act] { act([&button] { button.MouseDown(); }); });
  QObject::connect(view, &QAbstractButton::released, view,
                   [&button, act] { act([&button] { button.MouseUp(); }); });
  ConnectClick(button, *view, act);
  return [&button, view] { view->setPicture(ToQt(button.Picture())); };
}

RefreshView BindHotSpot(Control& control, QObject& target, const UserAction& act) {
  auto* const view = qobject_cast<widgets::HotSpot*>(&target);
  if (view == nullptr) return {};
  ConnectClick(static_cast<HotSpot&>(control), *view, act);
  return [] {};
}

RefreshView BindMenuItem(Control& control, QObject& target, const UserAction& act) {
  auto* const action = qobject_cast<QAction*>(&target);
  if (action == nullptr) return {};
  auto& item = static_cast<MenuItem&>(control);
  QObject::connect(action, &QAction::triggered, action, [&item, act] { act([&item] { item.Click(); }); });
  return [&item, action, design = action->text()] { ShowCaption(*action, design, item.Caption()); };
}

}  // namespace kavr6

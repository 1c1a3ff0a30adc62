#include "adapters/qt/windows/bind_kinds.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>
#include <array>

namespace kavr6 {
namespace {

struct KindRow {
  ControlKind kind;
  BindFunction bind;
};

constexpr std::array kKinds{
    KindRow{ControlKind::TextBox, BindTextBox},
    KindRow{ControlKind::TextArea, BindTextArea},
    KindRow{ControlKind::ListBox, BindListBox},
    KindRow{ControlKind::CheckBox, BindCheckBox},
    KindRow{ControlKind::OptionButton, BindOptionButton},
    KindRow{ControlKind::Slider, BindSlider},
    KindRow{ControlKind::Button, BindButton},
    KindRow{ControlKind::ImageButton, BindImageButton},
    KindRow{ControlKind::HotSpot, BindHotSpot},
    KindRow{ControlKind::MenuItem, BindMenuItem},
    KindRow{ControlKind::Grid, BindGrid},
    KindRow{ControlKind::PageView, BindPageView},
    KindRow{ControlKind::Label, BindLabel},
    KindRow{ControlKind::Frame, BindFrame},
    KindRow{ControlKind::Picture, BindPicture},
    KindRow{ControlKind::Lamp, BindLamp},
    KindRow{ControlKind::PercentPanel, BindPercentPanel},
    KindRow{ControlKind::Chart, BindChart},
    KindRow{ControlKind::ConnectorLine, BindConnectorLine},
};

template <class W>
bool Is(const QWidget& widget) {
  return qobject_cast<const W*>(&widget) != nullptr;
}

}  // namespace

RefreshView BindKind(Control& control, QObject& target, const UserAction& act) {
  const auto* const row =
      std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& r) { return r.kind == control.Kind(); });
  return row == kKinds.end() ? RefreshView() : row->bind(control, target, act);
}

bool IsInput(const QWidget& widget) {
  if (const auto* const text = qobject_cast<const QTextEdit*>(&widget)) return !text->isReadOnly();
  if (const auto* const text = qobject_cast<const QPlainTextEdit*>(&widget)) return !text->isReadOnly();
  return Is<QAbstractButton>(widget) || Is<QLineEdit>(widget) || Is<QComboBox>(widget) ||
         Is<QAbstractSpinBox>(widget) || Is<QAbstractItemView>(widget) ||
         (Is<QAbstractSlider>(widget) && !Is<QScrollBar>(widget));
}

bool IsMissedMnemonic(const QKeyEvent& key) {
  return key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && key.text()[0].isPrint();
}

}  // namespace kavr6

// How each kind of control is shown in its widget and used through it.
#pragma once

#include <QObject>
#include <functional>

#include "platform/control.h"
#include "platform/scheduler.h"

class QKeyEvent;

namespace kavr6 {

/// Brings the widget to the state of its control. Does nothing when it is there already, and never tells the
/// control of a user's action.
using RefreshView = std::function<void()>;

/// Runs what a user's action does to a control, and refreshes the views afterwards.
using UserAction = std::function<void(const Scheduler::Task&)>;

/// Alt and a letter that has turned out to be no mnemonic: in a field it would replace the selected text.
bool IsMissedMnemonic(const QKeyEvent& key);

/// Connects the user's actions on `target` with `control` and returns the way to show the control; an empty
/// function when `target` is not of a kind that can show it. State that all kinds share (enabled, visible,
/// tool tip, focus) is not its business.
RefreshView BindKind(Control& control, QObject& target, const UserAction& act);

/// One per kind; `control` is of that kind.
using BindFunction = RefreshView (*)(Control& control, QObject& target, const UserAction& act);
RefreshView BindTextBox(Control& control, QObject& target, const UserAction& act);
RefreshView BindTextArea(Control& control, QObject& target, const UserAction& act);
RefreshView BindListBox(Control& control, QObject& target, const UserAction& act);
RefreshView BindCheckBox(Control& control, QObject& target, const UserAction& act);
RefreshView BindOptionButton(Control& control, QObject& target, const UserAction& act);
RefreshView BindSlider(Control& control, QObject& target, const UserAction& act);
RefreshView BindButton(Control& control, QObject& target, const UserAction& act);
RefreshView BindImageButton(Control& control, QObject& target, const UserAction& act);
RefreshView BindHotSpot(Control& control, QObject& target, const UserAction& act);
RefreshView BindMenuItem(Control& control, QObject& target, const UserAction& act);
RefreshView BindGrid(Control& control, QObject& target, const UserAction& act);
RefreshView BindPageView(Control& control, QObject& target, const UserAction& act);
RefreshView BindLabel(Control& control, QObject& target, const UserAction& act);
RefreshView BindFrame(Control& control, QObject& target, const UserAction& act);
RefreshView BindPicture(Control& control, QObject& target, const UserAction& act);
RefreshView BindLamp(Control& control, QObject& target, const UserAction& act);
RefreshView BindPercentPanel(Control& control, QObject& target, const UserAction& act);
RefreshView BindChart(Control& control, QObject& target, const UserAction& act);
RefreshView BindConnectorLine(Control& control, QObject& target, const UserAction& act);

/// Whether a person can put something into the widget or set something off with it.
bool IsInput(const QWidget& widget);

}  // namespace kavr6

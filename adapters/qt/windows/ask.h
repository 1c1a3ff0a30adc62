// Message boxes on the screen.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/message_box.h"

namespace kavr6 {

/// Shows the box over `parent` (null: on its own) and waits for the answer. The text stands as it is given.
/// `help`: F1 is pressed in the box.
BoxAnswer ShowMessageBox(const MessageBox& box, QWidget* parent, const std::function<void()>& help);

}  // namespace kavr6

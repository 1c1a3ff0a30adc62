// Message boxes on the screen.
#pragma once

#include <QWidget>

#include "platform/message_box.h"

namespace kavr6 {

/// Shows the box over `parent` (null: on its own) and waits for the answer. The text stands as it is given.
BoxAnswer ShowMessageBox(const MessageBox& box, QWidget* parent);

}  // namespace kavr6

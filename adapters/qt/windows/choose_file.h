// The question for a file on the screen.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "platform/file_dialog.h"

namespace kavr6 {

/// Shows the dialog over `parent` (null: on its own) and waits for the choice. Full path in UTF-8, empty when
/// the user gives up. `help`: F1 is pressed in the dialog.
std::string ChooseFile(const FileDialog& dialog, QWidget* parent, const std::function<void()>& help);

}  // namespace kavr6

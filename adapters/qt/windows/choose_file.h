// The question for a file on the screen.
#pragma once

#include <QWidget>
#include <string>

#include "platform/file_dialog.h"

namespace kavr6 {

/// Shows the dialog over `parent` (null: on its own) and waits for the choice. Full path in UTF-8, empty when
/// the user gives up.
std::string ChooseFile(const FileDialog& dialog, QWidget* parent);

}  // namespace kavr6

// The windows' designs.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

namespace kavr6 {

/// A new hidden window after the design of that form; null when there is none.
std::unique_ptr<QWidget> BuildWindow(const std::string& formName);

}  // namespace kavr6

// A page of the help as it is read from the disk.
#pragma once

#include <QString>

namespace kavr6::widgets {

/// The HTML of that file. What is wrong is said in plain words: alone, where nothing can be read; above the
/// page, where it is damaged or does not have the place `fragment` (empty: none is asked for).
QString PageSource(const QString& path, const QString& fragment);

}  // namespace kavr6::widgets

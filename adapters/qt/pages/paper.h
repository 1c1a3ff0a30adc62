// The usual paper of a country.
#pragma once

#include <QLocale>
#include <QPageSize>

namespace kavr6 {

/// Letter where that is the custom, else A4.
QPageSize PaperOf(QLocale::Territory territory);
/// That of the country which the system's user has set, for paper where the system knows that.
QPageSize SystemPaper();

}  // namespace kavr6

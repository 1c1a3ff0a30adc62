#include "adapters/qt/pages/paper.h"

#include <algorithm>

namespace kavr6 {

QPageSize PaperOf(QLocale::Territory territory) {
  static constexpr QLocale::Territory kLetter[] = {
      QLocale::Belize,       QLocale::Canada,      QLocale::Chile,      QLocale::Colombia,
      QLocale::CostaRica,    QLocale::Guatemala,   QLocale::Mexico,     QLocale::Nicaragua,
      QLocale::Panama,       QLocale::Philippines, QLocale::PuertoRico, QLocale::ElSalvador,
      QLocale::UnitedStates, QLocale::Venezuela};
  const bool letter = std::ranges::find(kLetter, territory) != std::end(kLetter);
  return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

QPageSize SystemPaper() {
  // In the order in which the system itself asks them.
  for (const char* variable : {"LC_ALL", "LC_PAPER"})
    if (const QString name = qEnvironmentVariable(variable); !name.isEmpty())
      return PaperOf(QLocale(name).territory());
  return PaperOf(QLocale::system().territory());
}

}  // namespace kavr6

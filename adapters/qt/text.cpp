#include "adapters/qt/text.h"

namespace kavr6 {

QString ShownCaption(const QString& caption) {
  QString shown;
  shown.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

}  // namespace kavr6

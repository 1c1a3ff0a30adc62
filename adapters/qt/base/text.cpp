#include "adapters/qt/base/text.h"

namespace kavr6 {

QString WithoutFullStop(QString text) {
  text = text.trimmed();
  while (text.endsWith('.')) text.chop(1);
  return text;
}

QString ShownCaption(const QString& caption) {
  QString shown;
  shown.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    // What a disturbed line has made of a drive's letter must not show as a box or a second line.
    if (caption[i].isPrint()) shown += caption[i];
  }
  return shown;
}

QString ObjectNameOf(const std::string& controlName) {
  return ToQt(controlName).replace('(', '_').remove(')');
}

}  // namespace kavr6

// Texts between the logic (UTF-8, doubled ampersands) and the widgets.
#pragma once

#include <QDir>
#include <QString>
#include <string>

namespace kavr6 {

inline QString ToQt(const std::string& text) { return QString::fromStdString(text); }
inline std::string FromQt(const QString& text) { return text.toStdString(); }
/// A path as the toolkit gives it, in the form of the program's paths: with the system's own strokes.
inline std::string PathFromQt(const QString& path) { return FromQt(QDir::toNativeSeparators(path)); }

/// What the system says of an error, to stand within a sentence: some of its texts are sentences themselves.
QString WithoutFullStop(QString text);

/// A caption as a person reads it: mnemonics gone, a doubled ampersand a single one.
QString ShownCaption(const QString& caption);

/// The text that makes a widget with mnemonics show `shown` as it stands.
inline QString WithoutMnemonic(QString shown) { return shown.replace('&', "&&"); }

/// The object name of the widget that shows the control of that name: "LED_3" for "LED(3)".
QString ObjectNameOf(const std::string& controlName);

}  // namespace kavr6

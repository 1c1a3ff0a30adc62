// How the program looks: one style and one rule of colours for all windows, boxes and dialogs of the toolkit.
#pragma once

#include <QProxyStyle>
#include <QStyleOptionButton>
#include <optional>

#include "adapters/qt/windows/style/colours.h"

namespace kavr6::style {

/// What a push button, check box or radio button is drawn of.
struct ButtonParts {
  QStyle::ControlElement whole;
  QStyle::PrimitiveElement picture;
  QStyle::SubElement mark;
  QStyle::ControlElement label;
  QStyle::SubElement contents;
  QStyle::SubElement ring;
};

/// Whether the selected row of a list is drawn quietly, with the colours of its text: the list lacks the
/// focus.
bool ShowsQuietSelection(const QStyleOption& option, const QWidget* widget);

/// The toolkit's plain style with the program's own palette, which is light or dark as the system's is, at
/// every moment, and with the parts of parts.h.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT
 public:
  ProgramStyle();

  void polish(QPalette& palette) override;
  void polish(QWidget* widget) override;
  void unpolish(QWidget* widget) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QProxyStyle::polish;
  using QProxyStyle::unpolish;
  void DrawWithRing(const ButtonParts& parts, const QStyleOptionButton& button, QPainter& painter,
                    const QWidget* widget) const;
};

/// From now on the application looks so. May come before there is an application.
void UseProgramStyle();
/// What the palette follows in place of the system's until told otherwise: for tests and pictures.
void PretendSystemScheme(std::optional<Scheme> scheme);

}  // namespace kavr6::style

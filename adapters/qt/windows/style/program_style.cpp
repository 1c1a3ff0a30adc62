#include "adapters/qt/windows/style/program_style.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTextFormat>
#include <algorithm>
#include <iterator>

#include "adapters/qt/windows/style/parts.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::style {
namespace {

/// Room for the ring beside mark and words.
constexpr int kMarkMargin = 3;
constexpr double kMarkShare = 0.8;    // of a line's height
constexpr double kButtonRoom = 0.65;  // beside the words of a button, of a line's height

std::optional<Scheme> pretended;

bool HasFrameOfField(const QWidget* widget) {
  return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
}

/// Above the frame of a group.
int TitleHeight(const QWidget* widget) {
  constexpr int kGap = 3;
  const auto* const group = qobject_cast<const QGroupBox*>(widget);
  return group == nullptr || group->title().isEmpty() ? 0 : group->fontMetrics().height() + kGap;
}

/// Typing picks another row in a list with the focus: a person must see which list that is.
void Quieten(QPalette& palette) {
  palette.setColor(QPalette::All, QPalette::Highlight, QuietSelection(palette));
  palette.setColor(QPalette::All, QPalette::HighlightedText, palette.color(QPalette::Active, QPalette::Text));
}

const ButtonParts* PartsOf(QStyle::ControlElement element) {
  static const ButtonParts kParts[] = {
      {QStyle::CE_PushButton, QStyle::PE_PanelButtonCommand, QStyle::SE_PushButtonBevel,
       QStyle::CE_PushButtonLabel, QStyle::SE_PushButtonContents, QStyle::SE_PushButtonFocusRect},
      {QStyle::CE_CheckBox, QStyle::PE_IndicatorCheckBox, QStyle::SE_CheckBoxIndicator,
       QStyle::CE_CheckBoxLabel, QStyle::SE_CheckBoxContents, QStyle::SE_CheckBoxFocusRect},
      {QStyle::CE_RadioButton, QStyle::PE_IndicatorRadioButton, QStyle::SE_RadioButtonIndicator,
       QStyle::CE_RadioButtonLabel, QStyle::SE_RadioButtonContents, QStyle::SE_RadioButtonFocusRect}};
  const auto* const found = std::find_if(std::begin(kParts), std::end(kParts),
                                         [=](const auto& row) { return row.whole == element; });
  return found == std::end(kParts) ? nullptr : found;
}

const char* PictureOf(QStyle::StandardPixmap icon) {
  switch (icon) {
    case QStyle::SP_MessageBoxQuestion:
      return "BoxQuestion";
    case QStyle::SP_MessageBoxWarning:
      return "BoxWarning";
    case QStyle::SP_MessageBoxInformation:
      return "BoxInformation";
    case QStyle::SP_MessageBoxCritical:
      return "BoxError";
    default:
      return nullptr;
  }
}

}  // namespace

bool ShowsQuietSelection(const QStyleOption& option, const QWidget* widget) {
  return option.state.testFlag(QStyle::State_Selected) && option.state.testFlag(QStyle::State_Enabled) &&
         widget != nullptr && !widget->hasFocus() && widget->window()->windowType() != Qt::Popup;
}

ProgramStyle::ProgramStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void ProgramStyle::polish(QPalette& palette) { palette = PaletteOf(pretended.value_or(SchemeOf(palette))); }

// The toolkit draws what stands in such an area anew when the focus comes or goes, but not the frame.
void ProgramStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (HasFrameOfField(widget)) widget->installEventFilter(this);
}

void ProgramStyle::unpolish(QWidget* widget) {
  QProxyStyle::unpolish(widget);
  if (HasFrameOfField(widget)) widget->removeEventFilter(this);
}

bool ProgramStyle::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
    static_cast<QWidget*>(watched)->update();
  return QProxyStyle::eventFilter(watched, event);
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return DrawCheckMark(*painter, *option);
    case PE_IndicatorRadioButton:
      return DrawRadioMark(*painter, *option);
    case PE_PanelButtonCommand:
      return DrawButton(*painter, *option);
    case PE_FrameLineEdit:
      return DrawField(*painter, *option, false);
    case PE_PanelLineEdit: {
      const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame != nullptr && frame->lineWidth > 0) return DrawField(*painter, *option, true);
      break;
    }
    case PE_Frame:
      if (HasFrameOfField(widget)) return DrawField(*painter, *option, false);
      break;
    case PE_FrameGroupBox: {
      const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (frame == nullptr || !frame->features.testFlag(QStyleOptionFrame::Flat))
        DrawGroupFrame(*painter, *option, TitleHeight(widget));
      return;
    }
    case PE_PanelScrollAreaCorner:
      return painter->fillRect(option->rect, option->palette.window());
    case PE_FrameFocusRect:
      // The selected row of a list is told by its colour.
      if (!option->state.testFlag(State_Item) || !option->state.testFlag(State_Selected))
        DrawRing(*painter, option->rect, option->palette);
      return;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

// The plain style asks itself, and not this one, where the parts are and where the ring is.
void ProgramStyle::DrawWithRing(const ButtonParts& parts, const QStyleOptionButton& button, QPainter& painter,
                                const QWidget* widget) const {
  QStyleOptionButton part = button;
  part.rect = subElementRect(parts.mark, &button, widget);
  drawPrimitive(parts.picture, &part, &painter, widget);
  part.rect = subElementRect(parts.contents, &button, widget);
  drawControl(parts.label, &part, &painter, widget);
  if (button.state.testFlag(State_HasFocus))
    DrawRing(painter, subElementRect(parts.ring, &button, widget), button.palette);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (const ButtonParts* const parts = PartsOf(element); parts != nullptr && button != nullptr)
    return DrawWithRing(*parts, *button, *painter, widget);
  if (element == CE_PushButtonLabel && button != nullptr && IsFilled(*button)) {
    QStyleOptionButton words = *button;
    words.palette.setColor(QPalette::ButtonText, words.palette.color(QPalette::HighlightedText));
    return QProxyStyle::drawControl(element, &words, painter, widget);
  }
  if (const auto* const line = qstyleoption_cast<const QStyleOptionFrame*>(option);
      element == CE_ShapedFrame && line != nullptr && DrawDivider(*painter, *line))
    return;
  if (const auto* const item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
      element == CE_ItemViewItem && item != nullptr && ShowsQuietSelection(*item, widget)) {
    QStyleOptionViewItem quiet = *item;
    Quieten(quiet.palette);
    return QProxyStyle::drawControl(element, &quiet, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  if (const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      control == CC_ComboBox && box != nullptr)
    return DrawComboBox(*painter, *box, *this, widget);
  if (const auto* const slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
      control == CC_Slider && slider != nullptr)
    return DrawSlider(*painter, *slider, *this, widget);
  if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      control == CC_ScrollBar && bar != nullptr)
    return DrawScrollBar(*painter, *bar, *this, widget);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ProgramStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button == nullptr) return QProxyStyle::subElementRect(element, option, widget);
  QStyleOptionButton inner = *button;
  inner.rect.adjust(kMarkMargin, 0, -kMarkMargin, 0);
  const auto of = [&](SubElement part) { return QProxyStyle::subElementRect(part, &inner, widget); };
  switch (element) {
    case SE_PushButtonBevel:
    case SE_PushButtonFocusRect:
      return option->rect;
    case SE_CheckBoxIndicator:
    case SE_CheckBoxContents:
    case SE_RadioButtonIndicator:
    case SE_RadioButtonContents:
      return of(element);
    case SE_CheckBoxFocusRect:
    case SE_CheckBoxClickRect:
    case SE_RadioButtonFocusRect:
    case SE_RadioButtonClickRect: {
      const bool check = element == SE_CheckBoxFocusRect || element == SE_CheckBoxClickRect;
      const QRect mark = of(check ? SE_CheckBoxIndicator : SE_RadioButtonIndicator);
      const QRect words = of(check ? SE_CheckBoxFocusRect : SE_RadioButtonFocusRect);
      return mark.united(words).adjusted(-kMarkMargin, -kMarkMargin, kMarkMargin, kMarkMargin) & option->rect;
    }
    default:
      return QProxyStyle::subElementRect(element, option, widget);
  }
}

QRect ProgramStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
  QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
  const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  if (group != nullptr && part == SC_GroupBoxContents && group->features.testFlag(QStyleOptionFrame::Flat)) {
    // No frame: what is inside begins below the first letter of the title.
    rect.setLeft(option->rect.left());
    rect.setRight(option->rect.right());
  }
  return rect;
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const {
  const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (type == CT_CheckBox || type == CT_RadioButton) return usual + QSize(2 * kMarkMargin, 2);
  if (type != CT_PushButton || button == nullptr || button->text.size() < 2) return usual;
  return usual.expandedTo({size.width() + qRound(2 * kButtonRoom * button->fontMetrics.height()), 0});
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  switch (metric) {
    case PM_DefaultFrameWidth:
      return HasFrameOfField(widget) ? static_cast<int>(kRingWidth) : usual;
    case PM_HeaderMargin:  // as items have it, so that titles stand above their columns
      return pixelMetric(PM_FocusFrameHMargin, option, widget) + 1;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return widget == nullptr ? usual : std::max(usual, qRound(kMarkShare * widget->fontMetrics().height()));
    default:
      return usual;
  }
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* answer) const {
  switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_MessageBox_TextInteractionFlags:
      return Qt::TextSelectableByMouse;
    case SH_TextControl_FocusIndicatorTextCharFormat:
      if (auto* const format = qstyleoption_cast<QStyleHintReturnVariant*>(answer); format && option) {
        QTextCharFormat ring;
        ring.setProperty(QTextFormat::OutlinePen, QPen(Ring(option->palette), kRingWidth));
        format->variant = ring;
        return 1;
      }
      break;
    default:
      break;
  }
  return QProxyStyle::styleHint(hint, option, widget, answer);
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
  const char* const picture = PictureOf(icon);
  if (picture == nullptr) return QProxyStyle::standardIcon(icon, option, widget);
  const int side = proxy()->pixelMetric(PM_MessageBoxIconSize, option, widget);
  return widgets::ArtworkPixmap(picture, {side, side}, qApp->devicePixelRatio(), Qt::black);
}

void UseProgramStyle() {
#ifdef Q_OS_WIN
  // Else the toolkit darkens no more than the frames of windows on a dark desktop.
  constexpr const char* kPlatform = "QT_QPA_PLATFORM";
  if (!qEnvironmentVariableIsSet(kPlatform)) qputenv(kPlatform, "windows:darkmode=2");
#endif
  if (QCoreApplication::instance() == nullptr ||
      qobject_cast<ProgramStyle*>(QApplication::style()) == nullptr)
    QApplication::setStyle(new ProgramStyle);
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application has taken it

void PretendSystemScheme(std::optional<Scheme> scheme) {
  pretended = scheme;
  QApplication::setPalette(QPalette());
}

}  // namespace kavr6::style

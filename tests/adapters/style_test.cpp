// How the windows look: contrasts, the ring of the focus, the change between light and dark. All of it is
// measured on pictures.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "adapters/qt/windows/widgets/image_button.h"
#include "tests/adapters/shown_program.h"

namespace kavr6 {
namespace {

constexpr double kOutlineContrast = 3.0;
constexpr double kTextContrast = 4.5;
constexpr double kGreyedContrast = 2.0;

QString NameOf(const QWidget& widget) {
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  return widget.objectName().isEmpty() && label != nullptr ? label->text() : widget.objectName();
}

/// A window's picture, and what of it lies where.
struct Picture {
  explicit Picture(QWidget& window) : window_(window), image_(window.grab().toImage()) {}

  QRect Box(const QWidget& widget, const QRect& part) const {
    return {widget.mapTo(&window_, part.topLeft()), part.size()};
  }

  /// Of the edge at one side of a box: the most that a pixel there differs from what lies outside of the box.
  double EdgeContrast(const QRect& box, QPoint inwards) const {
    constexpr int kDeep = 5;
    // At a quarter of the side: arrows, ticks and cables keep to the middle.
    const QPoint start(inwards.x() == 0  ? box.left() + box.width() / 4
                       : inwards.x() > 0 ? box.left()
                                         : box.right(),
                       inwards.y() == 0  ? box.top() + box.height() / 4
                       : inwards.y() > 0 ? box.top()
                                         : box.bottom());
    const QPoint outside = start - 2 * inwards;
    if (!image_.rect().contains(outside)) return kOutlineContrast;
    double most = 1.0;
    for (int depth = -1; depth < kDeep; ++depth)
      most = std::max(
          most, style::Contrast(image_.pixelColor(start + depth * inwards), image_.pixelColor(outside)));
    return most;
  }

  /// The commonest colour of a box is the ground; the most that another differs from it. Nothing without one.
  double TextContrast(const QRect& box) const {
    std::map<QRgb, int> counts;
    const QRect inside = box & image_.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
      for (int x = inside.left(); x <= inside.right(); ++x) ++counts[image_.pixel(x, y)];
    if (counts.size() < 2) return 0.0;
    const auto ground = std::max_element(counts.begin(), counts.end(),
                                         [](const auto& a, const auto& b) { return a.second < b.second; });
    double most = 1.0;
    for (const auto& [colour, count] : counts)
      most = std::max(most, style::Contrast(QColor::fromRgb(colour), QColor::fromRgb(ground->first)));
    return most;
  }

 private:
  QWidget& window_;
  QImage image_;
};

QRect PartOf(const QAbstractButton& button, QStyle::SubElement part) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  return button.style()->subElementRect(part, &option, &button);
}

QRect HandleOf(const QSlider& slider) {
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.orientation = slider.orientation();
  option.minimum = slider.minimum();
  option.maximum = slider.maximum();
  option.sliderPosition = slider.sliderPosition();
  option.sliderValue = slider.value();
  option.tickPosition = slider.tickPosition();
  return slider.style()
      ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
      .adjusted(2, 2, -2, -2);
}

/// What has to stand out from the ground by its edge; empty when nothing of the widget has.
QRect EdgedPart(const QWidget& widget) {
  if (const auto* const check = qobject_cast<const QCheckBox*>(&widget))
    return PartOf(*check, QStyle::SE_CheckBoxIndicator);
  if (const auto* const radio = qobject_cast<const QRadioButton*>(&widget))
    return PartOf(*radio, QStyle::SE_RadioButtonIndicator);
  if (const auto* const slider = qobject_cast<const QSlider*>(&widget)) return HandleOf(*slider);
  const bool edged = (qobject_cast<const QLineEdit*>(&widget) != nullptr &&
                      static_cast<const QLineEdit&>(widget).hasFrame()) ||
                     qobject_cast<const QComboBox*>(&widget) != nullptr ||
                     qobject_cast<const QPushButton*>(&widget) != nullptr ||
                     qobject_cast<const QListWidget*>(&widget) != nullptr ||
                     qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
                     qobject_cast<const widgets::ImageButton*>(&widget) != nullptr;
  return edged ? widget.rect() : QRect();
}

/// Where the widget has words; empty without any.
QRect WordsOf(const QWidget& widget) {
  constexpr int kEdge = 4;
  const QRect inside = widget.rect().adjusted(kEdge, kEdge, -kEdge, -kEdge);
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  // A single sign such as a comma may be thinner than a pixel.
  if (button != nullptr && button->text().size() < 2) return {};
  if (qobject_cast<const QCheckBox*>(&widget) != nullptr) return PartOf(*button, QStyle::SE_CheckBoxContents);
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr)
    return PartOf(*button, QStyle::SE_RadioButtonContents);
  if (widget.inherits("kavr6::widgets::ImageButton"))
    return inside.adjusted(0, inside.height() - widget.fontMetrics().height() + kEdge, 0, 0);
  if (qobject_cast<const QPushButton*>(&widget) != nullptr) return inside;
  if (const auto* const label = qobject_cast<const QLabel*>(&widget))
    return label->text().trimmed().isEmpty() ? QRect() : label->rect();
  if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget))
    return edit->text().trimmed().isEmpty() ? QRect() : inside;
  if (qobject_cast<const QComboBox*>(&widget) != nullptr)
    return static_cast<const QComboBox&>(widget).currentIndex() < 0
               ? QRect()
               : inside.adjusted(0, 0, -widget.height(), 0);
  return {};
}

class Style : public testing::TestWithParam<style::Scheme> {};

TEST_P(Style, OutlinesAndTextsStandOutInEveryWindow) {
  ShownProgram program(GetParam());
  int edges = 0;
  int texts = 0;
  for (const ShownWindow& shown : program.windows) {
    const Picture picture(*shown.window);
    for (const QWidget* widget : shown.window->findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->visibleRegion().boundingRect() != widget->rect()) continue;
      const std::string who = shown.name + " " + NameOf(*widget).toStdString();
      if (const QRect part = EdgedPart(*widget); !part.isEmpty() && widget->isEnabled()) {
        ++edges;
        for (const QPoint inwards : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
          EXPECT_GE(picture.EdgeContrast(picture.Box(*widget, part), inwards), kOutlineContrast)
              << who << ", edge seen along " << inwards.x() << ", " << inwards.y();
      }
      const QRect words = WordsOf(*widget);
      const double contrast = words.isEmpty() ? 0.0 : picture.TextContrast(picture.Box(*widget, words));
      if (contrast == 0.0) continue;
      ++texts;
      EXPECT_GE(contrast, widget->isEnabled() ? kTextContrast : kGreyedContrast) << who << ", text";
    }
    for (const auto* view : shown.window->findChildren<QAbstractItemView*>()) {
      if (!view->isVisible()) continue;
      for (int row = 0; row < view->model()->rowCount(); ++row) {
        const QRect box = view->visualRect(view->model()->index(row, 0)) & view->viewport()->rect();
        const double contrast =
            box.isEmpty() ? 0.0 : picture.TextContrast(picture.Box(*view->viewport(), box));
        if (contrast == 0.0 || view->model()->index(row, 0).flags() == Qt::NoItemFlags) continue;
        ++texts;
        EXPECT_GE(contrast, kTextContrast)
            << shown.name << ", row " << row << " of " << NameOf(*view).toStdString();
      }
    }
  }
  EXPECT_GT(edges, 200);
  EXPECT_GT(texts, 500);
}

/// Pixels that differ by at least the contrast that a ring must have.
int ChangedPixels(const QImage& before, const QImage& after) {
  int changed = 0;
  for (int y = 0; y < before.height(); ++y)
    for (int x = 0; x < before.width(); ++x)
      if (style::Contrast(before.pixelColor(x, y), after.pixelColor(x, y)) >= kOutlineContrast) ++changed;
  return changed;
}

TEST_P(Style, AsFocusEveryControlHasARing) {
  ShownProgram program(GetParam());
  int rings = 0;
  for (const ShownWindow& shown : program.windows) {
    shown.window->activateWindow();
    QCoreApplication::processEvents();
    for (QWidget* widget : shown.window->findChildren<QWidget*>()) {
      const bool tied = widget->focusPolicy() != Qt::NoFocus && widget->isEnabled() && widget->isVisible();
      if (!tied || !IsInput(*widget)) continue;
      const auto picture = [&] {
        const QRect box(widget->mapTo(shown.window.get(), QPoint()), widget->size());
        return shown.window->grab(box).toImage();
      };
      widget->setFocus(Qt::TabFocusReason);
      if (!widget->hasFocus() || widget->visibleRegion().isEmpty()) continue;
      QImage with = picture();
      widget->clearFocus();
      const QImage without = picture();
      ++rings;
      // A ring is at least a line along the shorter of its sides, twice.
      EXPECT_GE(ChangedPixels(without, with), std::min(widget->width(), widget->height()))
          << shown.name << " " << NameOf(*widget).toStdString() << " does not show the focus";
    }
  }
  EXPECT_GT(rings, 150);
}

INSTANTIATE_TEST_SUITE_P(Schemes, Style, testing::Values(style::Scheme::Light, style::Scheme::Dark),
                         [](const auto& scheme) {
                           return scheme.param == style::Scheme::Light ? "Light" : "Dark";
                         });

std::vector<QImage> PicturesOf(const ShownProgram& program) {
  std::vector<QImage> pictures;
  for (const ShownWindow& shown : program.windows) {
    QCoreApplication::processEvents();
    pictures.push_back(shown.window->grab().toImage());
  }
  return pictures;
}

TEST(StyleChange, WindowsThatStandOpenLookAsIfTheyHadBeenOpenedSo) {
  std::vector<QImage> fresh;
  {
    const ShownProgram program(style::Scheme::Dark);
    fresh = PicturesOf(program);
  }
  const ShownProgram program(style::Scheme::Light);
  PicturesOf(program);
  style::PretendSystemScheme(style::Scheme::Dark);
  const std::vector<QImage> changed = PicturesOf(program);
  for (std::size_t i = 0; i < fresh.size(); ++i)
    EXPECT_TRUE(changed[i] == fresh[i]) << program.windows[i].name << " keeps colours of the other palette";
}

TEST(StyleChange, ThePaletteIsDarkWhereTheSystemsIs) {
  style::UseProgramStyle();
  for (const style::Scheme scheme : {style::Scheme::Light, style::Scheme::Dark}) {
    const bool dark = scheme == style::Scheme::Dark;
    QPalette system(dark ? QColor(20, 30, 20) : QColor(250, 240, 250));
    system.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    QApplication::style()->polish(system);
    EXPECT_EQ(system, style::PaletteOf(scheme));
  }
}

}  // namespace
}  // namespace kavr6

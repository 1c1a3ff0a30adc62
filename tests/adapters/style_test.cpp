// How the windows look: contrasts, the ring of the focus, the change between light and dark. All of it is
// measured on pictures.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "adapters/qt/windows/widgets/connector_line.h"
#include "adapters/qt/windows/widgets/image_button.h"
#include "adapters/qt/windows/widgets/page_browser.h"
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

  /// The word in a box that differs least from the ground, which is the box's commonest colour, measured at
  /// its strongest pixel. Nothing without a word.
  double TextContrast(const QRect& box) const {
    const QRect inside = box & image_.rect();
    const std::map<QRgb, double> contrasts = ContrastsIn(inside);
    const auto most = [&](const QRect& part) {
      double found = 1.0;
      for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
          found = std::max(found, contrasts.at(image_.pixel(x, y)));
      return found;
    };
    double least = 0.0;
    for (const QRect& line : Parts(inside, Qt::Vertical, 1, most))
      for (const QRect& word : Parts(line, Qt::Horizontal, kSpace, most))
        least = least == 0.0 ? most(word) : std::min(least, most(word));
    return least;
  }

 private:
  static constexpr int kSpace = 4;  // pixels between two words, at least

  std::map<QRgb, double> ContrastsIn(const QRect& box) const {
    std::map<QRgb, int> counts;
    for (int y = box.top(); y <= box.bottom(); ++y)
      for (int x = box.left(); x <= box.right(); ++x) ++counts[image_.pixel(x, y)];
    const auto ground = std::max_element(counts.begin(), counts.end(),
                                         [](const auto& a, const auto& b) { return a.second < b.second; });
    std::map<QRgb, double> contrasts;
    for (const auto& [colour, count] : counts)
      contrasts[colour] = style::Contrast(QColor::fromRgb(colour), QColor::fromRgb(ground->first));
    return contrasts;
  }

  /// What `gap` pixels of bare ground or more separate, along one direction.
  template <class Most>
  static std::vector<QRect> Parts(const QRect& box, Qt::Orientation along, int gap, const Most& most) {
    constexpr double kBare = 1.15;
    std::vector<QRect> parts;
    const int length = along == Qt::Vertical ? box.height() : box.width();
    for (int i = 0; i < length; ++i) {
      const QRect slice = along == Qt::Vertical ? QRect(box.left(), box.top() + i, box.width(), 1)
                                                : QRect(box.left() + i, box.top(), 1, box.height());
      if (most(slice) < kBare) continue;
      const bool near =
          !parts.empty() && (along == Qt::Vertical ? slice.top() - parts.back().bottom()
                                                   : slice.left() - parts.back().right()) <= gap;
      if (near)
        parts.back() |= slice;
      else
        parts.push_back(slice);
    }
    return parts;
  }

  QWidget& window_;
  QImage image_;
};

QRect PartOf(const QAbstractButton& button, QStyle::SubElement part) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  return button.style()->subElementRect(part, &option, &button);
}

/// Of a slider or a scroll bar; empty where there is nothing to move.
QRect HandleOf(const QAbstractSlider& slider) {
  if (slider.minimum() == slider.maximum()) return {};
  const bool bar = qobject_cast<const QScrollBar*>(&slider) != nullptr;
  QStyleOptionSlider option;
  option.initFrom(&slider);
  option.orientation = slider.orientation();
  option.minimum = slider.minimum();
  option.maximum = slider.maximum();
  option.pageStep = slider.pageStep();
  option.sliderPosition = slider.sliderPosition();
  option.sliderValue = slider.value();
  if (const auto* const ticked = qobject_cast<const QSlider*>(&slider))
    option.tickPosition = ticked->tickPosition();
  // What is drawn of a handle is narrower than what the mouse can take.
  const int sides = bar ? 3 : 2;
  const int ends = bar ? 0 : 2;
  const bool lying = slider.orientation() == Qt::Horizontal;
  const int across = lying ? ends : sides;
  const int down = lying ? sides : ends;
  return slider.style()
      ->subControlRect(bar ? QStyle::CC_ScrollBar : QStyle::CC_Slider, &option,
                       bar ? QStyle::SC_ScrollBarSlider : QStyle::SC_SliderHandle, &slider)
      .adjusted(across, down, -across, -down);
}

/// What has to stand out from the ground by its edge; empty when nothing of the widget has.
QRect EdgedPart(const QWidget& widget) {
  if (const auto* const check = qobject_cast<const QCheckBox*>(&widget))
    return PartOf(*check, QStyle::SE_CheckBoxIndicator);
  if (const auto* const radio = qobject_cast<const QRadioButton*>(&widget))
    return PartOf(*radio, QStyle::SE_RadioButtonIndicator);
  if (const auto* const slider = qobject_cast<const QAbstractSlider*>(&widget)) return HandleOf(*slider);
  if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(&widget))
    return area->frameShape() == QFrame::NoFrame ? QRect() : area->rect();
  const bool edged = (qobject_cast<const QLineEdit*>(&widget) != nullptr &&
                      static_cast<const QLineEdit&>(widget).hasFrame()) ||
                     qobject_cast<const QComboBox*>(&widget) != nullptr ||
                     qobject_cast<const QPushButton*>(&widget) != nullptr ||
                     qobject_cast<const widgets::ImageButton*>(&widget) != nullptr;
  return edged ? widget.rect() : QRect();
}

/// Where the widget has words; empty without any.
QRect WordsOf(const QWidget& widget) {
  if (const auto* const page = qobject_cast<const QTextBrowser*>(&widget))
    return page->viewport()->geometry();
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

class Style : public testing::TestWithParam<style::Scheme> {
 protected:
  void MeasureEdges(const Picture& picture, const QWidget& widget, const std::string& who) {
    const QRect part = EdgedPart(widget);
    if (part.isEmpty() || !widget.isEnabled()) return;
    ++edges;
    for (const QPoint inwards : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
      EXPECT_GE(picture.EdgeContrast(picture.Box(widget, part), inwards), kOutlineContrast)
          << who << ", edge seen along " << inwards.x() << ", " << inwards.y();
  }
  void MeasureWords(const Picture& picture, const QRect& box, bool enabled, const std::string& who) {
    const double contrast = box.isEmpty() ? 0.0 : picture.TextContrast(box);
    if (contrast == 0.0) return;
    ++texts;
    EXPECT_GE(contrast, enabled ? kTextContrast : kGreyedContrast) << who << ", text";
  }
  /// Whole rows: texts and the notes beside them.
  void MeasureRows(const Picture& picture, const QAbstractItemView& view, const std::string& who) {
    for (int row = 0; row < view.model()->rowCount(view.rootIndex()); ++row) {
      const QModelIndex index = view.model()->index(row, 0, view.rootIndex());
      if (index.flags() == Qt::NoItemFlags) continue;
      const QRect box =
          view.visualRect(index) | view.visualRect(index.siblingAtColumn(view.model()->columnCount() - 1));
      MeasureWords(picture, picture.Box(*view.viewport(), box & view.viewport()->rect()), true,
                   who + ", row " + std::to_string(row));
    }
  }

  int edges = 0;
  int texts = 0;
};

TEST_P(Style, OutlinesAndTextsStandOutInEveryWindow) {
  ShownProgram program(GetParam());
  for (const ShownWindow& shown : program.windows) {
    if (auto* const pages = shown.window->findChild<widgets::PageBrowser*>())
      pages->showPage(QUrl::fromLocalFile(KAVR6_HELP "/index.html"));
    shown.window->resize(1600, 1200);  // nothing is scrolled out of sight
    QCoreApplication::processEvents();
    const Picture picture(*shown.window);
    for (const QWidget* widget : shown.window->findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const std::string who = shown.name + " " + NameOf(*widget).toStdString();
      if (widget->visibleRegion().boundingRect() != widget->rect()) {
        EXPECT_TRUE(EdgedPart(*widget).isEmpty() && WordsOf(*widget).isEmpty()) << who << " is not in sight";
        continue;
      }
      MeasureEdges(picture, *widget, who);
      MeasureWords(picture, picture.Box(*widget, WordsOf(*widget)), widget->isEnabled(), who);
      if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget))
        MeasureRows(picture, *view, who);
      if (qobject_cast<const widgets::ConnectorLine*>(widget) != nullptr) {
        EXPECT_GE(Picture(const_cast<QWidget&>(*widget)).TextContrast(widget->rect()), kOutlineContrast)
            << who;
      }
    }
  }
  EXPECT_GT(edges, 200);
  EXPECT_GT(texts, 500);
}

TEST_P(Style, RowsAndNotesOfOpenListsStandOut) {
  ShownProgram program(GetParam());
  program.scene.main.CommList.SetItemNote(0, "/dev/ttyUSB0, in use");
  for (const ShownWindow& shown : program.windows) {
    for (auto* box : shown.window->findChildren<QComboBox*>()) {
      if (!box->isVisible() || !box->isEnabled() || box->count() == 0) continue;
      box->showPopup();
      QCoreApplication::processEvents();
      MeasureRows(Picture(*box->view()->window()), *box->view(),
                  shown.name + " " + NameOf(*box).toStdString());
      box->hidePopup();
    }
  }
  EXPECT_GT(texts, 50);
}

TEST(PicturesOfPages, StandOutOnEitherGround) {
  int colours = 0;
  for (const QFileInfo& file : QDir(KAVR6_HELP "/pictures").entryInfoList({"*.svg"})) {
    QFile picture(file.filePath());
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(picture.readAll());
    auto found = QRegularExpression("\"(#[0-9a-f]{6})\"").globalMatch(text);
    while (found.hasNext()) {
      const QColor colour(found.next().captured(1));
      ++colours;
      for (const style::Scheme scheme : {style::Scheme::Light, style::Scheme::Dark})
        EXPECT_GE(style::Contrast(colour, style::PaletteOf(scheme).color(QPalette::Base)), kOutlineContrast)
            << file.fileName().toStdString() << " " << colour.name().toStdString();
    }
  }
  EXPECT_GT(colours, 50);
}

TEST(ScrollBars, NothingStandsInTheCornerBetweenThem) {
  style::UseProgramStyle();
  QScrollArea area;
  auto* const page = new QWidget;
  page->setMinimumSize(400, 400);
  area.setWidget(page);
  area.resize(200, 200);
  area.show();
  QCoreApplication::processEvents();
  const QImage image = area.grab().toImage();
  const int left = area.verticalScrollBar()->mapTo(&area, QPoint()).x();
  const int top = area.horizontalScrollBar()->mapTo(&area, QPoint()).y();
  ASSERT_LT(left, area.width());
  ASSERT_LT(top, area.height());
  for (int i = 2; i < 8; ++i)
    EXPECT_EQ(image.pixelColor(left + i, top), area.palette().color(QPalette::Window)) << i;
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

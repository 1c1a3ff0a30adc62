#include "adapters/qt/windows/widgets/drive_stage.h"

#include <QEvent>
#include <algorithm>
#include <array>
#include <vector>

#include "adapters/qt/windows/widgets/drive_picture.h"

namespace kavr6::widgets {
namespace {

constexpr int kLeastLine = 22;
constexpr int kUsualLine = 34;
constexpr int kLongestLine = 110;
constexpr int kButtonGap = 4;
constexpr double kMostButtonScale = 1.15;    // they stay smaller than those of the transfers
constexpr double kPartSpacing = 72.0 / 310;  // of neighbouring connectors, as a share of the drawing's height

struct Seat {
  const char* button;
  const char* part;
  bool left;
};

// From top to bottom on either side.
constexpr std::array<Seat, 5> kSeats{{
    {"Motion", "HSinout1", true},
    {"IO", "HSinout2", true},
    {"Encoder", "HSencoder", true},
    {"Regen", "HSregen", false},
    {"Motor", "HSmotor", false},
}};

/// Moves the heights apart around their middle until neighbours have `least` between them.
void Spread(std::vector<int>& heights, int least) {
  int nearest = least;
  for (std::size_t i = 1; i < heights.size(); ++i) nearest = std::min(nearest, heights[i] - heights[i - 1]);
  if (nearest >= least || nearest <= 0) return;
  const int middle = (heights.front() + heights.back()) / 2;
  for (int& height : heights) height = middle + (height - middle) * least / nearest;
}

}  // namespace

QSize DriveStage::LargestButton(bool least) const {
  QSize size;
  for (const Seat& seat : kSeats)
    if (const auto* button = findChild<QWidget*>(seat.button))
      size = size.expandedTo(least ? button->minimumSizeHint() : button->sizeHint());
  return size;
}

QSize DriveStage::SizeFor(QSize button, int lineLength) const {
  const int height = 3 * button.height() + 2 * kButtonGap;
  return {2 * (button.width() + lineLength) + qRound(height * DrivePicture::Shape()), height};
}

QSize DriveStage::sizeHint() const { return SizeFor(LargestButton(false), kUsualLine); }

QSize DriveStage::minimumSizeHint() const {
  const QSize button = LargestButton(true);
  return {SizeFor(button, kLeastLine).width() - button.width() / 3, 3 * button.height() + 2 * kButtonGap};
}

void DriveStage::resizeEvent(QResizeEvent*) { Place(); }

bool DriveStage::event(QEvent* event) {
  const bool done = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest) Place();
  return done;
}

void DriveStage::Place() {
  auto* picture = findChild<DrivePicture*>();
  if (!picture) return;
  // A roomy window shows larger buttons, a narrow one the least.
  const QSize least = LargestButton(true);
  const double scale = std::clamp(std::min(height() / 420.0, width() / 520.0), 0.5, kMostButtonScale);
  QSize button = (LargestButton(false) * scale).expandedTo(least);
  const int line = width() < sizeHint().width() ? kLeastLine : kUsualLine;
  const int room = width() - 2 * (button.width() + line);
  const int drawn = std::min(room, qRound(height() * DrivePicture::Shape()));
  const int spacing = qRound(drawn / DrivePicture::Shape() * kPartSpacing);
  button.setHeight(std::max(least.height(), std::min(button.height(), spacing - kButtonGap)));
  picture->setGeometry((width() - drawn) / 2, 0, drawn, height());
  const int reach = std::min(width() / 2, drawn / 2 + kLongestLine + button.width());
  PlaceSide(*picture, true, button, width() / 2 - reach);
  PlaceSide(*picture, false, button, width() / 2 + reach - button.width());
  emit Placed();
}

void DriveStage::PlaceSide(const DrivePicture& picture, bool left, QSize button, int x) {
  std::vector<QWidget*> buttons;
  std::vector<int> heights;
  for (const Seat& seat : kSeats) {
    if (seat.left != left) continue;
    if (auto* widget = findChild<QWidget*>(seat.button)) {
      buttons.push_back(widget);
      heights.push_back(picture.y() + picture.PartRect(QString(seat.part)).center().y());
    }
  }
  Spread(heights, button.height() + kButtonGap);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const int top = std::clamp(heights[i] - button.height() / 2, 0, std::max(0, height() - button.height()));
    buttons[i]->setGeometry(x, top, button.width(), button.height());
  }
}

}  // namespace kavr6::widgets

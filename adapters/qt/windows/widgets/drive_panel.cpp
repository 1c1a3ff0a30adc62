#include "adapters/qt/windows/widgets/drive_panel.h"

#include <QBoxLayout>
#include <QEvent>
#include <algorithm>
#include <array>

#include "adapters/qt/windows/widgets/connector_line.h"
#include "adapters/qt/windows/widgets/drive_picture.h"
#include "adapters/qt/windows/widgets/drive_stage.h"

namespace kavr6::widgets {
namespace {

constexpr int kApproach = 14;  // between a line from above and the drive
constexpr int kCorner = 10;    // where no line leaves a button

enum class Leaves { Left, Right, Bottom };

struct Course {
  const char* control;
  Leaves leaves;
  const char* part;
  const char* line;
  const char* secondLine;  // null: one line for the whole course
};

constexpr std::array<Course, 7> kCourses{{
    {"Motion", Leaves::Right, "HSinout1", "MotionLine", nullptr},
    {"IO", Leaves::Right, "HSinout2", "IOLine", nullptr},
    {"Encoder", Leaves::Right, "HSencoder", "EncoderLine", nullptr},
    {"Regen", Leaves::Left, "HSregen", "RegenLine1", "RegenLine2"},
    {"Motor", Leaves::Left, "HSmotor", "MotorLine1", "MotorLine2"},
    {"CommList", Leaves::Bottom, "HSrs485", "CommLine", nullptr},
    {"Label2", Leaves::Bottom, "CaseTop", "DriveLine1", "DriveLine2"},
}};

/// From edge to edge, with a jog half way when the two ends can't be level.
QPolygonF CornersOf(Leaves leaves, const QRect& from, const QRect& to) {
  if (leaves == Leaves::Bottom) {
    const QPointF start(from.center().x(), from.bottom() + 1);
    const QPointF end(to.center().x(), to.top());
    const double bend = end.y() - kApproach;
    return {start, {start.x(), bend}, {end.x(), bend}, end};
  }
  const bool right = leaves == Leaves::Right;
  const int level = std::clamp(to.center().y(), from.top() + kCorner, from.bottom() - kCorner);
  const QPointF start(right ? from.right() + 1 : from.left(), level);
  const QPointF end(right ? to.left() : to.right(), to.center().y());
  const double bend = (start.x() + end.x()) / 2;
  return {start, {bend, start.y()}, {bend, end.y()}, end};
}

void Lay(QWidget& panel, const Course& course, const QPolygonF& corners) {
  auto* first = panel.findChild<ConnectorLine*>(course.line);
  if (!course.secondLine) {
    first->setPath(corners, true);
    return;
  }
  // On a whole pixel: half covered by either line it would show as a seam.
  const QPointF middle = ((corners[1] + corners[2]) / 2).toPoint();
  first->setPath({corners[0], corners[1], middle}, false);
  panel.findChild<ConnectorLine*>(course.secondLine)->setPath({middle, corners[2], corners[3]}, true);
}

}  // namespace

DrivePanel::DrivePanel(QWidget* parent) : QWidget(parent) {
  for (const Course& course : kCourses)
    for (const char* name : {course.line, course.secondLine})
      if (name) (new ConnectorLine(this))->setObjectName(name);
}

void DrivePanel::resizeEvent(QResizeEvent*) { Arrange(); }

bool DrivePanel::event(QEvent* event) {
  if (event->type() == QEvent::Polish) {
    if (auto* stage = findChild<DriveStage*>())
      connect(stage, &DriveStage::Placed, this, &DrivePanel::Arrange);
    for (auto* line : findChildren<ConnectorLine*>()) line->raise();
  }
  const bool done = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return done;
}

void DrivePanel::Arrange() {
  InsetStrip();
  Route();
}

// Spacers and not margins: they give way when the window is made narrower.
void DrivePanel::InsetStrip() {
  auto* strip = findChild<QHBoxLayout*>("linkStrip");
  const auto* button = findChild<QWidget*>("Motion");
  if (!strip || !button) return;
  const int inset = std::max(0, button->mapTo(this, QPoint()).x());
  QSpacerItem* left = strip->itemAt(0)->spacerItem();
  if (left->sizeHint().width() == inset) return;
  for (QSpacerItem* spacer : {left, strip->itemAt(strip->count() - 1)->spacerItem()})
    spacer->changeSize(inset, 0, QSizePolicy::Maximum, QSizePolicy::Minimum);
  strip->invalidate();
}

void DrivePanel::Route() {
  const auto* picture = findChild<DrivePicture*>();
  if (!picture) return;
  for (const Course& course : kCourses) {
    const auto* control = findChild<QWidget*>(course.control);
    if (!control) continue;
    const QRect from(control->mapTo(this, QPoint()), control->size());
    QRect to = picture->PartRect(QString(course.part));
    to.moveTopLeft(picture->mapTo(this, to.topLeft()));
    Lay(*this, course, CornersOf(course.leaves, from, to));
  }
}

}  // namespace kavr6::widgets

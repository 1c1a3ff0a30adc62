#include "adapters/qt/windows/widgets/drive_picture.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "adapters/qt/windows/widgets/artwork.h"
#include "adapters/qt/windows/widgets/picture.h"

namespace kavr6::widgets {
namespace {

constexpr double kWidth = 220;
constexpr double kHeight = 310;
constexpr double kLetterHeight = 10.5;

struct Part {
  const char* name;
  QRectF rect;  // in units of the drawing
  const char* word;
  QRectF wordBox;  // where its word is printed on the case
  Qt::AlignmentFlag wordSide;
};

const std::array<Part, 12> kParts{{
    {"HSinout1", {16, 64, 40, 52}, "IN/OUT 1", {38, 51, 80, 12}, Qt::AlignLeft},
    {"HSinout2", {16, 136, 40, 52}, "IN/OUT 2", {38, 122, 80, 12}, Qt::AlignLeft},
    {"HSencoder", {16, 210, 40, 48}, "ENCODER", {38, 196, 80, 12}, Qt::AlignLeft},
    {"HSACPower", {164, 88, 40, 40}, "AC POWER", {102, 74, 80, 12}, Qt::AlignRight},
    {"RegenPort", {164, 148, 40, 28}, "REGEN", {102, 134, 80, 12}, Qt::AlignRight},
    {"MotorPort", {164, 208, 40, 52}, "MOTOR", {102, 194, 80, 12}, Qt::AlignRight},
    {"HSrs485", {88, 4, 44, 30}, "RS-485", {70, 35, 80, 12}, Qt::AlignHCenter},
    {"HSled", {160, 47, 20, 20}, "STATUS", {78, 51, 80, 12}, Qt::AlignRight},
    {"StatusLamp", {160, 47, 20, 20}, "", {}, Qt::AlignLeft},
    {"PortPlug", {56, 0, 76, 34}, "", {}, Qt::AlignLeft},
    {"CaseTop", {150, 29, 20, 8}, "", {}, Qt::AlignLeft},
    {"HSdomelabel", {66, 240, 88, 40}, "", {}, Qt::AlignLeft},
}};

QRectF Scaled(const QRectF& part, const QRect& drawing) {
  const double scale = drawing.width() / kWidth;
  return {drawing.left() + part.left() * scale, drawing.top() + part.top() * scale, part.width() * scale,
          part.height() * scale};
}

}  // namespace

double DrivePicture::Shape() { return kWidth / kHeight; }

QRect DrivePicture::DrawingRect() const { return FittedRect(QSize(220, 310), rect()); }

QRect DrivePicture::PartRect(QStringView part) const {
  const auto* found = std::find_if(kParts.begin(), kParts.end(),
                                   [part](const Part& each) { return part == QLatin1String(each.name); });
  return found == kParts.end() ? QRect() : Scaled(found->rect, DrawingRect()).toAlignedRect();
}

void DrivePicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect drawing = DrawingRect();
  PaintArtwork(painter, "Drive", drawing, palette().color(QPalette::WindowText));
  QFont font = painter.font();
  font.setPixelSize(std::max(6, qRound(kLetterHeight * drawing.width() / kWidth)));
  painter.setFont(font);
  painter.setPen(QColor(0xe4, 0xe9, 0xee));
  for (const Part& part : kParts)
    painter.drawText(Scaled(part.wordBox, drawing), part.wordSide | Qt::AlignVCenter, part.word);
}

void DrivePicture::resizeEvent(QResizeEvent*) {
  constexpr int kHalo = 3;
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    const QRect part = PartRect(child->objectName());
    const bool shows = qobject_cast<Picture*>(child) != nullptr;
    const int halo = shows ? 0 : kHalo;
    // What only shows something lets the mouse through to what can be clicked.
    if (shows) child->setAttribute(Qt::WA_TransparentForMouseEvents);
    if (!part.isEmpty()) child->setGeometry(part.adjusted(-halo, -halo, halo, halo));
  }
}

}  // namespace kavr6::widgets

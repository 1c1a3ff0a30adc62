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
constexpr double kTerminalPitch = 12;
// Letters are never higher than these, in units of the drawing. In a large drawing they stay near those of
// the window, in a small one the names of the terminals are left out.
constexpr double kWordHeight = 11.5;
constexpr double kPinHeight = 9.6;
constexpr int kLeastPinPixels = 9;

struct Part {
  const char* name;
  QRectF rect;  // in units of the drawing
  const char* word;
  QRectF wordBox;  // where its word is printed on the case
  Qt::AlignmentFlag wordSide;
};

const std::array<Part, 12> kParts{{
    {"HSinout1", {16, 70, 40, 40}, "IN/OUT 1", {38, 57, 80, 12}, Qt::AlignLeft},
    {"HSinout2", {16, 130, 40, 64}, "IN/OUT 2", {38, 117, 80, 12}, Qt::AlignLeft},
    {"HSencoder", {16, 210, 40, 48}, "ENCODER", {38, 197, 80, 12}, Qt::AlignLeft},
    {"HSACPower", {164, 88, 40, 40}, "AC POWER", {102, 74, 80, 12}, Qt::AlignRight},
    {"HSregen", {164, 148, 40, 28}, "REGEN", {102, 134, 80, 12}, Qt::AlignRight},
    {"HSmotor", {164, 208, 40, 52}, "MOTOR", {102, 194, 80, 12}, Qt::AlignRight},
    {"HSrs485", {88, 4, 44, 30}, "RS-485", {70, 35, 80, 12}, Qt::AlignHCenter},
    {"HSled", {160, 47, 20, 20}, "STATUS", {78, 51, 80, 12}, Qt::AlignRight},
    {"StatusLamp", {160, 47, 20, 20}, "", {}, Qt::AlignLeft},
    {"PortPlug", {56, 0, 76, 34}, "", {}, Qt::AlignLeft},
    {"CaseTop", {150, 29, 20, 8}, "", {}, Qt::AlignLeft},
    {"HSdomelabel", {61.5, 252, 79.2, 36}, "", {}, Qt::AlignLeft},
}};

/// The terminals of a connector from top to bottom, by the names that dialogs and help use.
struct Terminals {
  double first;  // middle of the first terminal
  bool left;
  std::array<const char*, 5> names;
};

const std::array kTerminals{
    Terminals{78, true, {"X1/STEP", "X2/DIR", "X5"}},
    Terminals{138, true, {"X3", "X4", "Y1", "Y2", "Y3"}},
    Terminals{216, false, {"A+", "A\u2212", "B+", "B\u2212"}},
};

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
  const double scale = drawing.width() / kWidth;
  const auto letters = [&, usual = fontInfo().pixelSize()](double mostUnits, double share) {
    QFont font = painter.font();
    font.setPixelSize(std::max(6, qRound(std::min(mostUnits * scale, usual * share))));
    painter.setFont(font);
    return font.pixelSize();
  };
  letters(kWordHeight, 1.1);
  painter.setPen(QColor(0xe4, 0xe9, 0xee));
  for (const Part& part : kParts)
    painter.drawText(Scaled(part.wordBox, drawing), part.wordSide | Qt::AlignVCenter, part.word);
  if (letters(kPinHeight, 1.0) < kLeastPinPixels) return;
  for (const Terminals& terminals : kTerminals) {
    QRectF box(terminals.left ? 60 : 110, terminals.first - kTerminalPitch / 2, 50, kTerminalPitch);
    for (const char* name : terminals.names) {
      const auto side = terminals.left ? Qt::AlignLeft : Qt::AlignRight;
      if (name != nullptr)
        painter.drawText(Scaled(box, drawing), side | Qt::AlignVCenter | Qt::TextDontClip, QString(name));
      box.translate(0, kTerminalPitch);
    }
  }
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

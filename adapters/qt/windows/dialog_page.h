// What all dialogs have in common, so that no design has to tell it.
#pragma once

#include <QDialog>
#include <QObject>
#include <QSize>
#include <vector>

class QBoxLayout;
class QLabel;
class QLayout;

namespace kavr6 {

/// Gives a dialog's design a bold heading, puts all but the row of buttons into a part that scrolls where the
/// screen is too small, and sees to margins, gaps, widths of fields and columns, and to the size: it follows
/// what is shown of the contents, and ends where a larger window would only be emptier.
///
/// A design is a column; its row of buttons is the layout "buttonRow". Grids whose names end in "Fields" have
/// label, field and unit in their first columns: these are as wide in all such grids of a window. A field for
/// a number is one that is aligned to the right. Properties of a design:
///   heading  text of the heading; empty: none; without it the caption of the window
///   grows    "height" or "both": what a larger window is good for
class DialogPage : public QObject {
 public:
  explicit DialogPage(QDialog& dialog);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Which gaps of a layout its design leaves to all dialogs.
  struct Gaps {
    QLayout* layout;
    bool across;
    bool down;
  };
  void PutIntoArea(QBoxLayout& column);
  void AddHeading(QBoxLayout& column);
  void SettleMeasures();
  void NoteGaps();
  void SettleGaps(int gap);
  void FollowContents();

  QDialog& dialog_;
  QLabel* heading_ = nullptr;
  const QSize designed_;
  QSize wanted_;
  std::vector<Gaps> gaps_;
};

}  // namespace kavr6

// A list that a person searches by typing a few words.
#pragma once

#include <QLineEdit>
#include <QListView>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace kavr6::widgets {

/// Shows a list model with the notes of its rows, and above it a field: what is typed there leaves the rows
/// that have all the words (RowFilter). Searching alone picks nothing. In the field the arrow keys move the
/// selection among the rows that are left, Enter takes the one they have reached, else the first, and ends
/// the search; Esc ends it with the selection as it is. An empty field leaves both keys to the window.
class FilterList : public QListView {
  Q_OBJECT
  /// What stands in the empty field.
  Q_PROPERTY(QString hint READ hint WRITE setHint)

 public:
  explicit FilterList(QWidget* parent = nullptr);

  /// Shows that model from now on; it lives as long as the widget is used.
  void follow(const ListBox& list);
  /// Brings the view to the state of the model.
  void refresh();
  QLineEdit& field() { return *field_; }
  QString hint() const { return field_->placeholderText(); }
  void setHint(const QString& hint);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 signals:
  /// The user has picked a row of the model, and has double clicked one.
  void picked(int row);
  void pickedTwice(int row);
  /// The focus has come into the field.
  void fieldEntered();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  class Rows;

  void placeField();
  void search();
  void endSearch();
  void take();
  bool useKey(QKeyEvent& key);
  void step(QKeyEvent& key);
  void showSelection();

  QLineEdit* field_;
  Rows* rows_;
  const ListBox* list_ = nullptr;
  int shownRevision_ = -1;
  int shownNotes_ = -1;
  bool showing_ = false;  // what changes is not the user's doing
  bool stepped_ = false;  // by an arrow key since the last letter
};

}  // namespace kavr6::widgets

#include "adapters/qt/choose_file.h"

#include <QFileDialog>

#include "adapters/qt/text.h"

namespace kavr6 {
namespace {

/// "Words|*.ext" as the toolkit writes it: "Words (*.ext)".
QString FilterOf(const std::string& filter) {
  const QString text = ToQt(filter);
  return text.section('|', 0, 0) + " (" + text.section('|', 1, 1) + ")";
}

}  // namespace

std::string ChooseFile(const FileDialog& dialog, QWidget* parent) {
  const bool saves = dialog.purpose == FileDialog::Purpose::Save;
  QFileDialog window(parent, saves ? "Save As" : "Open", ToQt(dialog.folder), FilterOf(dialog.filter));
  // Not every system's own dialog asks about the name with its extension before a file is overwritten, or
  // lets a box that opens meanwhile be used.
  window.setOption(QFileDialog::DontUseNativeDialog);
  window.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  window.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  window.setDefaultSuffix(ToQt(dialog.defaultExtension));
  if (window.exec() != QDialog::Accepted) return {};
  return FromQt(window.selectedFiles().value(0));
}

}  // namespace kavr6

#include "frontend/gui/filedialogs.h"

#include <QFileDialog>

// "All Files" is "*" rather than "*.*": the dialog matches patterns literally,
// and "*.*" would hide every name without a dot.
TOpenSaveData inputFileData() {
  TOpenSaveData data;
  data.filters = {"RIB Files (*.RIB *.RIB.GZ)", "All Files (*)"};
  return data;
}

TOpenSaveData outputFileData() {
  TOpenSaveData data;
  data.save = true;
  data.filters = {"Scene Files (*.ZEL)", "All Files (*)"};
  return data;
}

std::unique_ptr<QFileDialog> makeFileDialog(QWidget* parent, const TOpenSaveData& data) {
  auto dialog = std::make_unique<QFileDialog>(parent, data.save ? "Save As" : "Open");
  // Qt's own dialog matches the filters whatever the case of a name, so
  // scene.rib shows under *.RIB; a desktop's native dialog may not.
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  if (data.save) {
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
  } else {
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
  }
  dialog->setNameFilters(data.filters);
  if (!data.selectedFilter.isEmpty()) dialog->selectNameFilter(data.selectedFilter);
  if (!data.directory.isEmpty()) dialog->setDirectory(data.directory);
  return dialog;
}

bool runFileDialog(QWidget* parent, TOpenSaveData& data) {
  std::unique_ptr<QFileDialog> dialog = makeFileDialog(parent, data);
  if (dialog->exec() != QDialog::Accepted) return false;
  QStringList chosen = dialog->selectedFiles();
  if (chosen.isEmpty()) return false;
  data.fileName = chosen.first();
  data.selectedFilter = dialog->selectedNameFilter();
  data.directory = dialog->directory().absolutePath();
  return true;
}

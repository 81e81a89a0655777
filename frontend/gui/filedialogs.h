// The open and save dialogs of Convert.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QFileDialog;
class QWidget;

// What a file dialog keeps from one Convert to the next: its filters, the one
// last chosen and the folder. The file name starts empty each time.
struct TOpenSaveData {
  bool save = false;
  QStringList filters;
  QString selectedFilter;
  QString directory;
  QString fileName;  // the chosen full path, after the dialog closed with OK
};

// The open dialog's data: RIB files first, and the file must exist.
TOpenSaveData inputFileData();
// The save dialog's data: scene files first, and an existing file is only
// overwritten after the user has confirmed it.
TOpenSaveData outputFileData();

// The dialog that asks for data's file, ready to run. No default extension
// is set: the name typed is the name used.
std::unique_ptr<QFileDialog> makeFileDialog(QWidget* parent, const TOpenSaveData& data);

// Asks for a file. On OK stores the path, the filter and the folder in data
// and returns true.
using TFileChooser = std::function<bool(QWidget* parent, TOpenSaveData& data)>;
bool runFileDialog(QWidget* parent, TOpenSaveData& data);

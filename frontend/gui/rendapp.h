// The desktop program: the main window with its log and menu, and Convert,
// which asks for the two files and runs the conversion dialog.
//
// Conversions in one run share what lies below the reader: the declared
// tokens, the Ri layer's state and its error handler go on from one to the
// next. The log keeps the lines of the last conversion until the next
// Convert empties it.
#pragma once

#include <QApplication>
#include <QIcon>

#include "frontend/gui/filedialogs.h"

class QAction;
class TQuitSignals;
class TRendEdit;
class TRendFrame;

class TRendApp : public QApplication {
  Q_OBJECT

 public:
  TRendApp(int& argc, char** argv);
  ~TRendApp() override;

  // Builds the windows, shows the main window and runs the event loop.
  int Run();
  // Builds the main window, its log and its menu; does not show them.
  void InitMainWindow();

  // Appends a line to the log of the main window: where RIB messages go.
  static void print(const char* line);
  static QIcon programIcon();

  void CmConvert();
  // Convert with the input already chosen (a file dropped on the main window):
  // asks for the output only.
  void convertFrom(const QString& inputPath);
  void CmAbout();
  // Opens the Preview window of the last scene file that a conversion wrote whole.
  void CmPreview();
  // Cancels a running conversion, closes the windows and ends the event
  // loop: what a quit signal does.
  void QuitCleanly();

  TRendEdit* fEdit = nullptr;  // owned by fFrame
  TOpenSaveData fInputData;
  TOpenSaveData fOutputData;
  TRendFrame* fFrame = nullptr;
  // Asks for a file; the file dialogs unless a test puts its own in.
  TFileChooser fChooseFile = runFileDialog;
  // Options, Extended RIB: off at start.
  bool fExtended = false;
  // The last scene file a conversion wrote whole, or empty.
  QString fLastScene;

 private:
  void buildMenu();
  bool outputUsable();
  void addPreviewCommand();
  QAction* fPreviewAction = nullptr;
};

extern TRendApp* gApp;

#include "frontend/gui/rendframe.h"

#include <QCloseEvent>
#include <QStatusBar>

#include "frontend/gui/progressdialog.h"

TProgressDialog* TRendFrame::fProgressDialog = nullptr;

// The status bar shows the menu commands' hints while the pointer is on them.
TRendFrame::TRendFrame(const QString& title, QWidget* client) {
  setWindowTitle(title);
  setCentralWidget(client);
  statusBar();
}

void TRendFrame::closeEvent(QCloseEvent* event) {
  if (fProgressDialog) fProgressDialog->reject();
  QMainWindow::closeEvent(event);
}

void fitToClient(QMainWindow* frame) {
  frame->resize(frame->sizeHint());
}

#include "frontend/gui/rendframe.h"

#include <QStatusBar>

TProgressDialog* TRendFrame::fProgressDialog = nullptr;

// The status bar shows the menu commands' hints while the pointer is on them.
TRendFrame::TRendFrame(const QString& title, QWidget* client) {
  setWindowTitle(title);
  setCentralWidget(client);
  statusBar();
}

void fitToClient(QMainWindow* frame) {
  frame->resize(frame->sizeHint());
}

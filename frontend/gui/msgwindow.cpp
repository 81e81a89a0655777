#include "frontend/gui/msgwindow.h"

#include <QMainWindow>

#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"

TRendEdit* gMsgWindow = nullptr;

namespace {

constexpr int kColumns = 80;
constexpr int kLines = 10;

// A top-level window of its own, not a child of the main window. Closing it
// deletes it and, with it, its text, whose destructor clears gMsgWindow. It is
// shown once, when it is made; later lines neither show nor raise it.
void createMsgWindow() {
  auto* frame = new QMainWindow;
  frame->setWindowTitle("RIB Messages");
  frame->setAttribute(Qt::WA_DeleteOnClose);
  // Left open, it must not keep the program running after the main window.
  frame->setAttribute(Qt::WA_QuitOnClose, false);
  // It comes up during a conversion and must not take the keyboard from the
  // status dialog, whose Escape key cancels.
  frame->setAttribute(Qt::WA_ShowWithoutActivating);
  gMsgWindow = new TRendEdit(kColumns, kLines, frame);
  frame->setCentralWidget(gMsgWindow);
  fitToClient(frame);
  frame->show();
}

}  // namespace

void showRibMessage(const char* line) {
  if (!gMsgWindow) createMsgWindow();
  gMsgWindow->print(line);
}

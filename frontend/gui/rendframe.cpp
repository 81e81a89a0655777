#include "frontend/gui/rendframe.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

#include "frontend/gui/rendapp.h"

namespace {

// The path of the one local file a drag carries, or "".
QString droppedFile(const QMimeData* data) {
  if (!data || !data->hasUrls() || data->urls().size() != 1) return QString();
  const QUrl& url = data->urls().first();
  return url.isLocalFile() ? url.toLocalFile() : QString();
}

}  // namespace

#include "frontend/gui/progressdialog.h"

TProgressDialog* TRendFrame::fProgressDialog = nullptr;

// The status bar shows the menu commands' hints while the pointer is on them.
TRendFrame::TRendFrame(const QString& title, QWidget* client) {
  setWindowTitle(title);
  setCentralWidget(client);
  statusBar();
  setAcceptDrops(true);
}

void TRendFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!fProgressDialog && !droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TRendFrame::dropEvent(QDropEvent* event) {
  const QString path = droppedFile(event->mimeData());
  if (fProgressDialog || path.isEmpty()) return;
  event->acceptProposedAction();
  // Convert runs its own dialogs: not inside the drop's event handler, which
  // would keep the dragging program waiting.
  QMetaObject::invokeMethod(
      gApp, [path] { gApp->convertFrom(path); }, Qt::QueuedConnection);
}

void TRendFrame::closeEvent(QCloseEvent* event) {
  if (fProgressDialog) fProgressDialog->reject();
  QMainWindow::closeEvent(event);
}

void fitToClient(QMainWindow* frame) {
  frame->resize(frame->sizeHint());
}

#include "tests/frontend/gui/guitest.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

#include "frontend/gui/progressdialog.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"

namespace {

constexpr int kPollMs = 2;
// Longer than any conversion here takes, even under the sanitizers.
constexpr int kGiveUpMs = 120'000;

}  // namespace

convertresult convert(const QString& input, const QString& output, const dialogcheck& running,
                      const dialogcheck& finished) {
  gApp->fChooseFile = [input, output](QWidget*, TOpenSaveData& data) {
    data.fileName = data.save ? output : input;
    return true;
  };
  convertresult result;
  QTimer poll;
  poll.setInterval(kPollMs);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    TProgressDialog* dialog = TRendFrame::fProgressDialog;
    if (!dialog || !dialog->isVisible()) return;
    result.dialogShown = true;
    if (!dialog->isFinished()) {
      if (running) running(*dialog);
      return;
    }
    result.status = dialog->findChild<QLabel*>("status")->text();
    result.log = gApp->fEdit->toPlainText();
    if (finished) finished(*dialog);
    dialog->findChild<QPushButton*>("ok")->click();
  });
  QTimer giveUp;
  giveUp.setSingleShot(true);
  QObject::connect(&giveUp, &QTimer::timeout, [] {
    if (TRendFrame::fProgressDialog) TRendFrame::fProgressDialog->reject();
  });
  poll.start();
  giveUp.start(kGiveUpMs);
  gApp->fFrame->findChild<QAction*>("convert")->trigger();
  return result;
}

bool answerModal(const std::function<void()>& action,
                 const std::function<void(QWidget& modal)>& answer) {
  bool seen = false;
  QTimer poll;
  poll.setInterval(kPollMs);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || seen) return;
    seen = true;
    answer(*modal);
    modal->close();
  });
  poll.start();
  action();
  return seen;
}

QByteArray spheres(int n) {
  QByteArray rib = "WorldBegin\n";
  for (int i = 0; i < n; ++i) rib += "Sphere 1 -1 1 360\n";
  return rib + "WorldEnd\n";
}

filledtext fill(TRendEdit& edit, int count, int columns) {
  edit.clear();
  QByteArray line(columns, 'M');
  for (int i = 0; i < count; ++i) edit.print(line.constData());
  edit.verticalScrollBar()->setValue(0);
  edit.grab();  // lays out what is visible, as painting does
  filledtext result;
  result.oneLineEach = true;
  QRect page = edit.viewport()->rect();
  for (QTextBlock b = edit.document()->firstBlock(); b.isValid(); b = b.next()) {
    QRect place = edit.cursorRect(QTextCursor(b));
    if (!page.contains(place)) break;
    ++result.linesShown;
    if (b.layout()->lineCount() != 1) result.oneLineEach = false;
  }
  edit.clear();
  return result;
}

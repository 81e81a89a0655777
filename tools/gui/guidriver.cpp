#include "tools/gui/guidriver.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "frontend/gui/progressdialog.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"

namespace {

constexpr int kPollMs = 2;
// Longer than any conversion of the tests takes, even under the sanitizers.
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

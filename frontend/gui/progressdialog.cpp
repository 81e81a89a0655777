#include "frontend/gui/progressdialog.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "frontend/conversion.h"
#include "frontend/gui/msgwindow.h"
#include "frontend/gui/quitsignals.h"
#include "frontend/gui/rendapp.h"

namespace {

constexpr int kProgressSteps = 1000;

// How long one idle call may go on converting. One statement per call would
// be the most responsive, but a round trip through the event loop costs about
// as much as a short statement: on a 20 MB scene it made the conversion take
// half as long again as the command line's. So an idle call converts
// statements until this much time has passed and then returns to the event
// loop, which serves input and paints before the timer calls again. Cancel is
// still answered between two statements, within a hundredth of a second.
constexpr qint64 kIdleBudgetNs = 10'000'000;

conversion::request requestFor(const QString& inputPath, const QString& outputPath, bool extended) {
  conversion::request r;
  r.extended = extended;
  r.input = QFile::encodeName(inputPath).toStdString();
  r.output = QFile::encodeName(outputPath).toStdString();
  r.log = &TRendApp::print;
  r.messages = &showRibMessage;
  r.stop = &TQuitSignals::asked;
  return r;
}

}  // namespace

TProgressDialog::TProgressDialog(QWidget* parent, const QString& inputPath,
                                 const QString& outputPath, bool extended)
    : QDialog(parent),
      fRib(std::make_unique<conversion>(requestFor(inputPath, outputPath, extended))),
      fStatus(new QLabel(convertingText(inputPath, outputPath))),
      fProgress(new QProgressBar),
      fCancel(new QPushButton("Cancel")),
      fOk(new QPushButton("OK")),
      fPreview(new QPushButton("Preview")) {
  setWindowTitle("Conversion Status");
  // Modal over the main window only, so that the RIB Messages window can be
  // scrolled and closed while a conversion runs.
  setWindowModality(Qt::WindowModal);
  fStatus->setObjectName("status");
  fStatus->setAlignment(Qt::AlignCenter);
  fStatus->setWordWrap(true);
  fStatus->setMinimumWidth(fStatus->fontMetrics().averageCharWidth() * 40);
  fProgress->setObjectName("progress");
  fProgress->setRange(0, kProgressSteps);
  fProgress->setValue(0);
  fCancel->setObjectName("cancel");
  fOk->setObjectName("ok");

  // Cancel and OK take the same place; one of them is hidden at any time.
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(fCancel);
  buttons->addWidget(fOk);
  buttons->addWidget(fPreview);
  fPreview->setObjectName("preview");
  fPreview->hide();
  connect(fPreview, &QPushButton::clicked, this, [this] { done(kPreview); });
  buttons->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fStatus);
  layout->addWidget(fProgress);
  layout->addLayout(buttons);
  fOk->hide();
  connect(fCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(fOk, &QPushButton::clicked, this, &QDialog::accept);

  // A zero interval runs the timer whenever the event queue has run empty.
  fIdle.setInterval(0);
  connect(&fIdle, &QTimer::timeout, this, &TProgressDialog::IdleAction);
  if (fRib->open()) {
    fIdle.start();
  } else {
    // The scene library has already shown its own failure in the RIB
    // Messages window; the reason stands in the status line either way.
    showEnd(QString::fromStdString(fRib->error()));
  }
}

TProgressDialog::~TProgressDialog() = default;

bool TProgressDialog::previewOffered() const {
  return !fPreview->isHidden();
}

QString TProgressDialog::convertingText(const QString& inputPath, const QString& outputPath) {
  return QString("Converting %1 to %2")
      .arg(QFileInfo(inputPath).fileName(), QFileInfo(outputPath).fileName());
}

void TProgressDialog::IdleAction() {
  if (!fRib) {
    fIdle.stop();
    return;
  }
  QElapsedTimer spent;
  spent.start();
  bool more;
  do {
    more = fRib->step();
  } while (more && spent.nsecsElapsed() < kIdleBudgetNs);
  if (more) return showProgress();
  // Only the RIB log decides between the two texts; a failed read or write
  // says why instead.
  if (fRib->state() == conversion::phase::failed) {
    showEnd(QString::fromStdString(fRib->error()));
  } else if (fRib->state() == conversion::phase::cancelled) {
    // Stopped by a quit signal in the middle of the input; the program ends.
    showEnd("Conversion cancelled.");
  } else {
    fProgress->setValue(kProgressSteps);
    showEnd(fRib->statusText());
    fPreview->show();
  }
}

void TProgressDialog::showProgress() {
  double fraction = fRib->progress();
  if (fraction < 0) {
    fProgress->setRange(0, 0);  // size unknown: a busy bar
  } else {
    fProgress->setValue(static_cast<int>(fraction * kProgressSteps));
  }
}

void TProgressDialog::showEnd(const QString& text) {
  fIdle.stop();
  fRib.reset();
  fFinished = true;
  fStatus->setText(text);
  fCancel->hide();
  fOk->show();
  fOk->setDefault(true);
  fOk->setFocus();
}

// The conversion object, when destroyed while running, stops reading and
// leaves the scene file with the whole records written so far; no closing
// call goes to the scene library.
void TProgressDialog::done(int result) {
  fIdle.stop();
  fRib.reset();
  QDialog::done(result);
}

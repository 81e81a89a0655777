#include "frontend/gui/rendapp.h"

#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>

#include "frontend/gui/aboutdialog.h"
#include "frontend/gui/msgwindow.h"
#include "frontend/gui/previewwindow.h"
#include "frontend/gui/progressdialog.h"
#include "frontend/gui/quitsignals.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"
#include "frontend/outputname.h"
#include "interface/error.h"
#include "zel/zellib.h"

TRendApp* gApp = nullptr;

// The icon lives in a static library, whose resources are linked only when
// something calls their initialiser. It must be declared outside any namespace.
static void initResources() {
  Q_INIT_RESOURCE(gui);
}

namespace {

constexpr int kLogColumns = 80;
constexpr int kLogLines = 24;

// The warning that ends Convert when the output cannot be written; the
// detail says why.
void warnFileError(QWidget* parent, const QString& detail) {
  QMessageBox box(QMessageBox::Warning, "File Error", "Unable to open file", QMessageBox::Ok,
                  parent);
  box.setInformativeText(detail);
  box.exec();
}

}  // namespace

TRendApp::TRendApp(int& argc, char** argv)
    : QApplication(argc, argv), fInputData(inputFileData()), fOutputData(outputFileData()) {
  gApp = this;
  initResources();
  setApplicationName("RIB to ZEL");
  setWindowIcon(programIcon());
  // A conversion routes both to the same place while it runs.
  setMessageSink(&showRibMessage);
  zelSetMessageSink(&showRibMessage);
  connect(new TQuitSignals(this), &TQuitSignals::quitRequested, this, &TRendApp::QuitCleanly);
}

TRendApp::~TRendApp() {
  setMessageSink(nullptr);
  zelSetMessageSink(nullptr);
  if (gMsgWindow) delete gMsgWindow->window();
  delete fFrame;
  gApp = nullptr;
}

int TRendApp::Run() {
  InitMainWindow();
  fFrame->show();
  return exec();
}

void TRendApp::InitMainWindow() {
  fEdit = new TRendEdit(kLogColumns, kLogLines);
  fFrame = new TRendFrame(applicationName(), fEdit);
  buildMenu();
  fitToClient(fFrame);
}

void TRendApp::buildMenu() {
  QMenu* file = fFrame->menuBar()->addMenu("&File");
  QAction* convert = file->addAction("&Convert");
  convert->setObjectName("convert");
  convert->setShortcut(Qt::Key_F12);
  convert->setStatusTip("Convert RIB file ZEL file");
  connect(convert, &QAction::triggered, this, &TRendApp::CmConvert);
  file->addSeparator();
  QAction* exit = file->addAction("E&xit");
  exit->setObjectName("exit");
  exit->setStatusTip("Exit RIB to Zelvane");
  connect(exit, &QAction::triggered, fFrame, &QWidget::close);

  QMenu* options = fFrame->menuBar()->addMenu("&Options");
  QAction* extended = options->addAction("&Extended RIB");
  extended->setObjectName("extended");
  extended->setCheckable(true);
  extended->setChecked(fExtended);
  extended->setStatusTip(
      "Read the requests and forms of later RIB: archives, handles, shading nodes, cameras");
  connect(extended, &QAction::toggled, this, [this](bool on) { fExtended = on; });

  QMenu* help = fFrame->menuBar()->addMenu("&Help");
  QAction* about = help->addAction("&About...");
  about->setObjectName("about");
  about->setStatusTip("Display version and copyright information");
  connect(about, &QAction::triggered, this, &TRendApp::CmAbout);
}

void TRendApp::print(const char* line) {
  gApp->fEdit->print(line);
}

QIcon TRendApp::programIcon() {
  return QIcon(":/rib2zel.png");
}

void TRendApp::CmConvert() {
  fInputData.fileName.clear();
  if (!fChooseFile(fFrame, fInputData)) return;
  convertFrom(fInputData.fileName);
}

void TRendApp::convertFrom(const QString& inputPath) {
  fInputData.fileName = inputPath;
  fOutputData.fileName.clear();
  if (!fChooseFile(fFrame, fOutputData)) return;
  if (!outputUsable()) return;
  fEdit->clear();
  TProgressDialog dialog(fFrame, fInputData.fileName, fOutputData.fileName, fExtended);
  TRendFrame::fProgressDialog = &dialog;
  int result = dialog.exec();
  TRendFrame::fProgressDialog = nullptr;
  if (dialog.previewOffered()) {
    fLastScene = fOutputData.fileName;
    addPreviewCommand();
  }
  if (result == TProgressDialog::kPreview) CmPreview();
}

// The conversion makes the same check when it opens; here it comes before
// the log is emptied and the dialog is shown. An input that cannot be opened
// is reported by the conversion.
bool TRendApp::outputUsable() {
  const QString& output = fOutputData.fileName;
  inputfile input;
  input.open(QFile::encodeName(fInputData.fileName).toStdString());
  std::string reason;
  switch (checkoutput(input, QFile::encodeName(output).toStdString(), reason)) {
    case outputcheck::isInput:
      warnFileError(fFrame, output + " is the input file.");
      return false;
    case outputcheck::unwritable:
      warnFileError(fFrame, output + ": " + QString::fromLocal8Bit(reason.c_str()));
      return false;
    case outputcheck::usable:
      break;
  }
  return true;
}

void TRendApp::QuitCleanly() {
  if (TRendFrame::fProgressDialog) TRendFrame::fProgressDialog->reject();
  closeAllWindows();
  quit();
}

// File, Preview comes with the first scene file there is to draw.
void TRendApp::addPreviewCommand() {
  if (fPreviewAction) return;
  QMenu* file = fFrame->menuBar()->actions().front()->menu();
  fPreviewAction = new QAction("&Preview", file);
  fPreviewAction->setObjectName("preview");
  fPreviewAction->setShortcut(Qt::Key_F5);
  fPreviewAction->setStatusTip("Draw the last scene file from its camera");
  connect(fPreviewAction, &QAction::triggered, this, &TRendApp::CmPreview);
  file->insertAction(file->actions().at(1), fPreviewAction);
}

void TRendApp::CmPreview() {
  if (fLastScene.isEmpty()) return;
  QString error;
  TPreviewWindow* window = TPreviewWindow::open(fLastScene, fFrame, error);
  if (!window) {
    QMessageBox::warning(fFrame, "Preview", "The scene file cannot be drawn.\n" + error);
    return;
  }
  window->setWindowTitle("Preview - " + QFileInfo(fLastScene).fileName());
  window->show();
}

void TRendApp::CmAbout() {
  makeAboutDialog(fFrame)->exec();
}

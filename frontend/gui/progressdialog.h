// The modal "Conversion Status" dialog, which runs one conversion from the
// event loop's idle time so that Cancel and repainting stay live without a
// second thread. When the input ends it shows the outcome and OK in place of
// Cancel; Cancel (or closing the dialog) stops the conversion between two
// statements.
#pragma once

#include <QDialog>
#include <QString>
#include <QTimer>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;
class conversion;

class TProgressDialog : public QDialog {
  Q_OBJECT

 public:
  // Opens the input and names the output to the scene library; reads no RIB.
  // `extended`: read with the extended RIB reader.
  TProgressDialog(QWidget* parent, const QString& inputPath, const QString& outputPath,
                  bool extended = false);
  ~TProgressDialog() override;

  // "Converting a.rib to b.zel", with the file names only.
  static QString convertingText(const QString& inputPath, const QString& outputPath);

  // What exec() returns when the user chose Preview at the end.
  static constexpr int kPreview = 2;

  // True once the conversion has ended and OK is offered.
  bool isFinished() const { return fFinished; }
  // True when the conversion wrote its scene file whole and Preview is offered.
  bool previewOffered() const;

  // Every way of closing ends here: a conversion still running is cancelled.
  void done(int result) override;

 private:
  void IdleAction();
  void showEnd(const QString& text);
  void showProgress();

  std::unique_ptr<conversion> fRib;  // null once ended or cancelled
  QLabel* fStatus;
  QProgressBar* fProgress;
  QPushButton* fCancel;
  QPushButton* fOk;
  QPushButton* fPreview;  // offered when the scene file was written whole
  QTimer fIdle;
  bool fFinished = false;
};

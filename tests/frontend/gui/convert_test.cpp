// Convert from end to end: the two paths, the output test, the status dialog
// with its idle loop, Cancel, and the log.
#include <unistd.h>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "frontend/gui/msgwindow.h"
#include "frontend/gui/progressdialog.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"
#include "tests/frontend/gui/guitest.h"
#include "tests/frontend/gui/suites.h"
#include "tests/frontend/testdata.h"

namespace {

std::vector<std::string> opsOf(const QString& zelPath) {
  return sceneops(readAll(zelPath).toStdString());
}

long countOf(const std::vector<std::string>& ops, const std::string& op) {
  return std::count(ops.begin(), ops.end(), op);
}

}  // namespace

class ConvertTest : public QObject {
  Q_OBJECT

 private slots:
  void aGoodFileEndsWithSuccessAndAnEmptyLog() {
    scratch dir;
    QString out = dir.file("b.zel");
    convertresult r = convert(dir.write("a.rib", spheres(3)), out);
    QVERIFY(r.dialogShown);
    QCOMPARE(r.status, QString("Success."));
    QCOMPARE(r.log, QString());
    QCOMPARE(countOf(opsOf(out), "SphereV"), 3);
    QVERIFY(!TRendFrame::fProgressDialog);
  }

  void extendedRibReadsArchivesAndADroppedFileAsksForTheOutputOnly() {
    scratch dir;
    QString out = dir.file("b.zel");
    dir.write("a.rib", "Sphere 1 -1 1 360\n");
    QString in = dir.write("main.rib", "WorldBegin\nReadArchive \"a.rib\"\nWorldEnd\n");
    gApp->fFrame->findChild<QAction*>("extended")->setChecked(true);
    convertresult r = convert(in, out);
    gApp->fFrame->findChild<QAction*>("extended")->setChecked(false);
    QCOMPARE(r.status, QString("Success."));
    QCOMPARE(countOf(opsOf(out), "SphereV"), 1);
    QVERIFY(readAll(out).startsWith(
        R"({"format":"ZEL","version":1,"generator":"rib2zel 1.0.0","reader":"extended"})"));

    QStringList asked;
    gApp->fChooseFile = [&](QWidget*, TOpenSaveData& data) {
      asked << (data.save ? "save" : "open");
      return false;
    };
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(in)});
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    // Straight to the window: the application passes on only drops of a drag
    // that it saw begin.
    static_cast<QObject*>(gApp->fFrame)->event(&drop);
    QTRY_COMPARE(asked, QStringList({"save"}));
    QCOMPARE(gApp->fInputData.fileName, in);
  }

  void aFaultyFilePutsItsLinesInTheLog() {
    scratch dir;
    QString out = dir.file("b.zel");
    convertresult r = convert(
        dir.write("a.rib", "WorldBegin\nBogus\nSphere 1 -1 1 360\nSphere 1 -1 x 360\nWorldEnd\n"),
        out);
    QCOMPARE(r.status, QString("There are warning/error messages."));
    QCOMPARE(r.log,
             QString("RIB error: undefined RIB request at line 1 'Bogus'\n"
                     "RIB error: incorrect parameter value at line 4 'x': Expected 4 floats"));
    QCOMPARE(countOf(opsOf(out), "SphereV"), 1);
    // The log keeps the lines after the dialog has gone.
    QCOMPARE(gApp->fEdit->toPlainText(), r.log);
  }

  void theStatusLineNamesTheFilesWithoutTheirFolders() {
    QCOMPARE(TProgressDialog::convertingText("/home/me/scenes/a.rib", "b.zel"),
             QString("Converting a.rib to b.zel"));
    QCOMPARE(TProgressDialog::convertingText("a.rib", "/tmp/out/b.zel"),
             QString("Converting a.rib to b.zel"));
  }

  void cancelWhileRunningStopsBetweenStatementsAndKeepsWholeRecords() {
    scratch dir;
    const int total = 200000;
    QString out = dir.file("out.zel");
    int progressAtCancel = -1;
    QString title;
    QString status;
    bool okShown = true;
    convertresult r = convert(dir.write("in.rib", spheres(total)), out, [&](TProgressDialog& d) {
      int value = d.findChild<QProgressBar*>("progress")->value();
      if (value < 100 || progressAtCancel >= 0) return;
      progressAtCancel = value;
      title = d.windowTitle();
      status = d.findChild<QLabel*>("status")->text();
      okShown = d.findChild<QPushButton*>("ok")->isVisible();
      QPushButton* cancel = d.findChild<QPushButton*>("cancel");
      QVERIFY(cancel->isVisible());
      cancel->click();
    });
    QVERIFY(r.dialogShown);
    QCOMPARE(title, QString("Conversion Status"));
    QCOMPARE(status, QString("Converting in.rib to out.zel"));
    QVERIFY(!okShown);
    QVERIFY(progressAtCancel >= 100);
    QVERIFY(progressAtCancel < 1000);
    QVERIFY(!TRendFrame::fProgressDialog);
    std::vector<std::string> ops;
    try {
      ops = opsOf(out);  // throws unless every record is whole
    } catch (const std::exception& e) {
      QFAIL(e.what());
    }
    long converted = countOf(ops, "SphereV");
    QVERIFY(converted > 0);
    QVERIFY(converted < total);
    QCOMPARE(ops.back(), std::string("SphereV"));
    QCOMPARE(countOf(ops, "WorldEnd"), 0);
  }

  void anInputThatCannotBeOpenedEndsWithTheReason() {
    scratch dir;
    QString in = dir.file("gone.rib");
    convertresult r = convert(in, dir.file("b.zel"));
    QVERIFY(r.dialogShown);
    QCOMPARE(r.status, "Unable to open input file \"" + in + "\": No such file or directory");
    QCOMPARE(r.log, QString());
  }

  // /dev/full opens like any file and refuses the first block written, which
  // a scene this large sends well before its end.
  void aFullDiskEndsTheConversionWithTheWriteError() {
    scratch dir;
    convertresult r = convert(dir.write("a.rib", spheres(20000)), "/dev/full");
    const QString reason =
        "ZEL severe error: cannot write the scene file \"/dev/full\": No space left on device";
    QVERIFY(r.dialogShown);
    QCOMPARE(r.status, reason);
    QCOMPARE(r.log, QString());
    QVERIFY(gMsgWindow);
    QCOMPARE(gMsgWindow->toPlainText(), reason);
    gMsgWindow->window()->close();
  }

  void anUnwritableOutputShowsTheWarningAndConvertsNothing() {
    scratch dir;
    convert(dir.write("bad.rib", "Bogus\n"), dir.file("bad.zel"));
    QString logBefore = gApp->fEdit->toPlainText();
    QVERIFY(!logBefore.isEmpty());

    QString in = dir.write("a.rib", spheres(1));
    convertresult r;
    bool warned = answerModal([&] { r = convert(in, dir.file("missing/b.zel")); },
                              [](QWidget& modal) {
                                auto* box = qobject_cast<QMessageBox*>(&modal);
                                QVERIFY(box);
                                QCOMPARE(box->windowTitle(), QString("File Error"));
                                QCOMPARE(box->text(), QString("Unable to open file"));
                                QCOMPARE(box->icon(), QMessageBox::Warning);
                              });
    QVERIFY(warned);
    QVERIFY(!r.dialogShown);
    QCOMPARE(gApp->fEdit->toPlainText(), logBefore);
  }

  void theOutputMayNotBeTheInput() {
    scratch dir;
    QByteArray rib = spheres(2);
    QString in = dir.write("a.rib", rib);
    convertresult r;
    bool warned = answerModal([&] { r = convert(in, in); },
                              [](QWidget& modal) {
                                auto* box = qobject_cast<QMessageBox*>(&modal);
                                QVERIFY(box);
                                QCOMPARE(box->text(), QString("Unable to open file"));
                              });
    QVERIFY(warned);
    QVERIFY(!r.dialogShown);
    QCOMPARE(readAll(in), rib);
  }

  void cancellingAFileDialogChangesNothing() {
    scratch dir;
    convert(dir.write("bad.rib", "Bogus\n"), dir.file("bad.zel"));
    QString logBefore = gApp->fEdit->toPlainText();
    QString out = dir.write("kept.zel", "old");
    for (bool refuseSave : {false, true}) {
      gApp->fChooseFile = [&](QWidget*, TOpenSaveData& data) {
        data.fileName = data.save ? out : dir.file("bad.rib");
        return refuseSave ? !data.save : false;
      };
      gApp->CmConvert();
      QCOMPARE(gApp->fEdit->toPlainText(), logBefore);
      QCOMPARE(readAll(out), QByteArray("old"));
    }
  }

  void aSecondConversionStartsWithAnEmptyLog() {
    scratch dir;
    convertresult first = convert(dir.write("bad.rib", "Bogus\n"), dir.file("1.zel"));
    QCOMPARE(first.status, QString("There are warning/error messages."));
    convertresult second = convert(dir.write("good.rib", "Declare \"carried\" \"uniform float\"\n"),
                                   dir.file("2.zel"));
    QCOMPARE(second.status, QString("Success."));
    QCOMPARE(second.log, QString());
  }

  void conversionsShareTheDeclaredTokens() {
    // An undeclared parameter would fail the request; the declaration of the
    // previous conversion is still known.
    scratch dir;
    convert(dir.write("declare.rib", "Declare \"shared\" \"uniform float\"\n"), dir.file("1.zel"));
    QString out = dir.file("2.zel");
    convertresult r = convert(
        dir.write("use.rib", "WorldBegin\nSurface \"plastic\" \"shared\" 1\nWorldEnd\n"), out);
    QCOMPARE(r.status, QString("Success."));
    QCOMPARE(countOf(opsOf(out), "SurfaceV"), 1);
  }

  // Last, as each closes the windows; they are shown again for the next.
  void quittingWhileRunningKeepsWholeRecords() {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"main window closed", [] { gApp->fFrame->close(); }},
        {"SIGHUP", [] { std::raise(SIGHUP); }},
        {"SIGINT", [] { std::raise(SIGINT); }},
    };
    const int total = 200000;
    for (const auto& [name, quit] : ways) {
      scratch dir;
      QString out = dir.file("out.zel");
      bool asked = false;
      convert(dir.write("in.rib", spheres(total)), out, [&](TProgressDialog& d) {
        if (asked || d.findChild<QProgressBar*>("progress")->value() < 100) return;
        asked = true;
        quit();
      });
      QVERIFY2(asked, name);
      QVERIFY2(!TRendFrame::fProgressDialog, name);
      QVERIFY2(!gApp->fFrame->isVisible(), name);
      std::vector<std::string> ops;
      try {
        ops = opsOf(out);  // throws unless every record is whole
      } catch (const std::exception& e) {
        QFAIL(e.what());
      }
      QVERIFY2(countOf(ops, "SphereV") > 0 && countOf(ops, "SphereV") < total, name);
      gApp->fFrame->show();
    }
    // One endless token: the event loop does not run until the input stops.
    scratch dir;
    QString out = dir.file("zero.zel");
    std::thread signaller([] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      kill(getpid(), SIGTERM);
    });
    // The dialog may be gone before the helper has looked at it: the scene
    // file and the closed window tell the outcome.
    convert("/dev/zero", out);
    signaller.join();
    QTRY_VERIFY(!gApp->fFrame->isVisible());
    QCOMPARE(readAll(out),
             QByteArray("{\"format\":\"ZEL\",\"version\":1,\"generator\":\"rib2zel " RIB2ZEL_VERSION
                        "\"}\n"));
    gApp->fFrame->show();
  }
};

QObject* makeConvertTest() {
  return new ConvertTest;
}

#include "convert_test.moc"

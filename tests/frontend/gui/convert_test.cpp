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

// The operations of a scene file that must hold whole records only.
std::vector<std::string> wholeOps(const QString& zelPath) {
  try {
    return opsOf(zelPath);
  } catch (const std::exception& e) {
    qWarning("%s", e.what());
    return {};
  }
}

long countOf(const std::vector<std::string>& ops, const std::string& op) {
  return std::count(ops.begin(), ops.end(), op);
}

}  // namespace

class ConvertTest : public QObject {
  Q_OBJECT

 private slots:
  // One run of the program: each conversion starts with an empty log, and the
  // declarations of one are known in the next.
  void eachConversionEndsWithItsStatusLogAndRecords() {
    scratch dir;
    const QString gone = dir.file("gone.rib");
    const QString full =
        "ZEL severe error: cannot write the scene file \"/dev/full\": No space left on device";
    const struct {
      QByteArray rib;  // null: the input does not exist
      QString output;  // in the folder unless absolute
      QString status;
      QString log;
      std::string op;
      long count;
    } cases[] = {
        {spheres(3), "a.zel", "Success.", "", "SphereV", 3},
        {"WorldBegin\nBogus\nSphere 1 -1 1 360\nSphere 1 -1 x 360\nWorldEnd\n", "b.zel",
         "There are warning/error messages.",
         "RIB error: undefined RIB request at line 1 'Bogus'\n"
         "RIB error: incorrect parameter value at line 4 'x': Expected 4 floats",
         "SphereV", 1},
        {"Declare \"shared\" \"uniform float\"\n", "c.zel", "Success.", "", "SphereV", 0},
        {"WorldBegin\nSurface \"plastic\" \"shared\" 1\nWorldEnd\n", "d.zel", "Success.", "",
         "SurfaceV", 1},
        {QByteArray(), "e.zel",
         "Unable to open input file \"" + gone + "\": No such file or directory", "", "", 0},
        // /dev/full opens like any file and refuses the first block written,
        // which a scene this large sends well before its end.
        {spheres(20000), "/dev/full", full, "", "", 0},
    };
    for (const auto& c : cases) {
      const QString in = c.rib.isNull() ? gone : dir.write("in.rib", c.rib);
      const QString out = c.output.startsWith('/') ? c.output : dir.file(c.output);
      convertresult r = convert(in, out);
      QVERIFY(r.dialogShown);
      QCOMPARE(r.status, c.status);
      QCOMPARE(r.log, c.log);
      // The log keeps the lines after the dialog has gone.
      QCOMPARE(gApp->fEdit->toPlainText(), c.log);
      if (!c.op.empty()) QCOMPARE(countOf(opsOf(out), c.op), c.count);
      QVERIFY(!TRendFrame::fProgressDialog);
    }
    QVERIFY(gMsgWindow);
    QCOMPARE(gMsgWindow->toPlainText(), full);
    gMsgWindow->window()->close();
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
    // The status line names the files without their folders.
    QCOMPARE(status, QString("Converting in.rib to out.zel"));
    QVERIFY(!okShown);
    QVERIFY(progressAtCancel >= 100);
    QVERIFY(progressAtCancel < 1000);
    QVERIFY(!TRendFrame::fProgressDialog);
    const std::vector<std::string> ops = wholeOps(out);
    long converted = countOf(ops, "SphereV");
    QVERIFY(converted > 0);
    QVERIFY(converted < total);
    QCOMPARE(ops.back(), std::string("SphereV"));
    QCOMPARE(countOf(ops, "WorldEnd"), 0);
  }

  // An output that cannot be written (a folder that does not exist, the input
  // itself) shows the warning; a cancelled file dialog shows nothing. Either
  // way nothing is converted and the log stays.
  void aRefusedConvertChangesNothing() {
    scratch dir;
    convert(dir.write("bad.rib", "Bogus\n"), dir.file("bad.zel"));
    const QString logBefore = gApp->fEdit->toPlainText();
    QVERIFY(!logBefore.isEmpty());
    const QByteArray rib = spheres(2);
    const QString in = dir.write("a.rib", rib);
    for (const QString& out : {dir.file("missing/b.zel"), in}) {
      convertresult r;
      bool warned = answerModal([&] { r = convert(in, out); },
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
    QCOMPARE(readAll(in), rib);
    const QString out = dir.write("kept.zel", "old");
    for (bool refuseSave : {false, true}) {
      gApp->fChooseFile = [&](QWidget*, TOpenSaveData& data) {
        data.fileName = data.save ? out : in;
        return refuseSave ? !data.save : false;
      };
      gApp->CmConvert();
      QCOMPARE(gApp->fEdit->toPlainText(), logBefore);
      QCOMPARE(readAll(out), QByteArray("old"));
    }
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
      const std::vector<std::string> ops = wholeOps(out);
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

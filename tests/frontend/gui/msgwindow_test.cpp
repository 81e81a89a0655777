// The "RIB Messages" window: made by the first message of the Ri layer, kept
// for the later ones, and made anew, empty, after the user has closed it.
#include <QMainWindow>
#include <QtTest>

#include "frontend/gui/msgwindow.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"
#include "tests/frontend/gui/guitest.h"
#include "tests/frontend/gui/suites.h"

namespace {

const char* const kBadHider = "Hider \"x\"\n";
const char* const kBadHiderLine =
    "error: Parameter out of range. RiHiderV: unknown hider type \"x\", using hidden";

void closeMsgWindow() {
  if (!gMsgWindow) return;
  gMsgWindow->window()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

class MsgWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { closeMsgWindow(); }

  void theFirstMessageOpensTheWindowAndDoesNotCount() {
    QVERIFY(!gMsgWindow);
    scratch dir;
    convertresult r = convert(dir.write("a.rib", kBadHider), dir.file("a.zel"));
    QVERIFY(gMsgWindow);
    QMainWindow* frame = qobject_cast<QMainWindow*>(gMsgWindow->window());
    QVERIFY(frame);
    QVERIFY(frame != gApp->fFrame);
    QVERIFY(!frame->parentWidget());
    QCOMPARE(frame->windowTitle(), QString("RIB Messages"));
    QVERIFY(frame->isVisible());
    QVERIFY(gMsgWindow->isReadOnly());
    QCOMPARE(gMsgWindow->toPlainText(), QString(kBadHiderLine));
    // Interface messages stay out of the log and the status.
    QCOMPARE(r.status, QString("Success."));
    QCOMPARE(r.log, QString());
  }

  // Until the user closes it; then the next message makes it anew, empty.
  void laterMessagesGoToTheSameWindowUntilItIsClosed() {
    scratch dir;
    convert(dir.write("a.rib", kBadHider), dir.file("a.zel"));
    TRendEdit* first = gMsgWindow;
    convert(dir.write("b.rib", kBadHider), dir.file("b.zel"));
    QCOMPARE(gMsgWindow, first);
    QCOMPARE(gMsgWindow->toPlainText(), QString(kBadHiderLine) + "\n" + kBadHiderLine);
    closeMsgWindow();
    QVERIFY(!gMsgWindow);
    convert(dir.write("c.rib", kBadHider), dir.file("c.zel"));
    QVERIFY(gMsgWindow);
    QCOMPARE(gMsgWindow->window()->windowTitle(), QString("RIB Messages"));
    QCOMPARE(gMsgWindow->toPlainText(), QString(kBadHiderLine));
  }

  void theWindowHoldsEightyColumnsByTenLines() {
    scratch dir;
    convert(dir.write("a.rib", kBadHider), dir.file("a.zel"));
    QVERIFY(QTest::qWaitForWindowExposed(gMsgWindow->window()));
    filledtext full = fill(*gMsgWindow, 15, 80);
    QCOMPARE(full.linesShown, 10);
    QVERIFY(full.oneLineEach);
  }

  void cleanupTestCase() { closeMsgWindow(); }
};

QObject* makeMsgWindowTest() {
  return new MsgWindowTest;
}

#include "msgwindow_test.moc"

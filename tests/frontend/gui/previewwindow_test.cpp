// The Preview window: the scene's camera first, the mouse's and keys' camera
// moves after, and a file it cannot draw refused with the reason.
#include <QKeyEvent>
#include <QtTest>

#include "frontend/gui/previewwindow.h"
#include "tests/frontend/gui/guitest.h"
#include "tests/frontend/gui/suites.h"

class PreviewWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void homeFrameAndOrbitMoveTheCamera() {
    QString error;
    std::unique_ptr<TPreviewWindow> w(
        TPreviewWindow::open("tests/golden/quadric_lights.zel", nullptr, error));
    QVERIFY2(w, qPrintable(error));
    w->resize(320, 240);
    w->home();
    QImage home = w->grab().toImage();
    w->orbit(30, 10);
    QImage turned = w->grab().toImage();
    QVERIFY(turned != home);
    QTest::keyClick(w.get(), Qt::Key_Home);
    QCOMPARE(w->grab().toImage(), home);
    QTest::keyClick(w.get(), Qt::Key_F);
    QVERIFY(w->grab().toImage() != home);
    QTest::keyClick(w.get(), Qt::Key_Home);
    w->zoom(0.5f);
    QVERIFY(w->grab().toImage() != home);
  }

  void aFileItCannotDrawIsRefusedWithTheReason() {
    scratch dir;
    QString error;
    QString path = dir.write("bad.zel",
                             "{\"format\":\"ZEL\",\"version\":1,\"generator\":\"t\"}\n"
                             "{\"op\":\"SceneBegin\",\"args\":[]}\n{\"op\":\"Sphere");
    QVERIFY(!TPreviewWindow::open(path, nullptr, error));
    QCOMPARE(error, QString("ZEL line 3: the last record has no line end: the file was cut short"));
  }
};

QObject* makePreviewWindowTest() {
  return new PreviewWindowTest;
}

#include "previewwindow_test.moc"

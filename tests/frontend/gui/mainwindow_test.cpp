// The main window, its menu, the About box and the file dialogs.
#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QtTest>

#include "frontend/gui/filedialogs.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"
#include "tests/frontend/gui/guitest.h"
#include "tests/frontend/gui/suites.h"

namespace {

QStringList actionTexts(const QMenu* menu) {
  QStringList texts;
  for (const QAction* a : menu->actions()) texts << (a->isSeparator() ? "-" : a->text());
  return texts;
}

QAction* action(const char* name) {
  return gApp->fFrame->findChild<QAction*>(name);
}

// The names the dialog lists in its folder, once the folder has been read.
QStringList listed(QFileDialog& dialog) {
  auto* view = dialog.findChild<QListView*>("listView");
  QStringList names;
  if (!view || !view->model()) return names;
  QModelIndex root = view->rootIndex();
  for (int row = 0; row < view->model()->rowCount(root); ++row)
    names << view->model()->index(row, 0, root).data().toString();
  names.sort();
  return names;
}

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void theLogIsTheWholeClientAreaReadOnlyEightyColumnsByTwentyFourLines() {
    TRendFrame* frame = gApp->fFrame;
    QCOMPARE(frame->windowTitle(), QString("RIB to ZEL"));
    QCOMPARE(frame->centralWidget(), gApp->fEdit);
    QVERIFY(gApp->fEdit->isReadOnly());
    QVERIFY(QTest::qWaitForWindowExposed(frame));
    // With more lines than it shows, the text scrolls, and the scroll bar
    // takes no room from the columns.
    filledtext full = fill(*gApp->fEdit, 30, 80);
    QCOMPARE(full.linesShown, 24);
    QVERIFY(full.oneLineEach);
    QVERIFY(!fill(*gApp->fEdit, 30, 84).oneLineEach);
  }

  void theMenusHoldTheCommandsWithTheirKeysAndHints() {
    QList<QAction*> menus = gApp->fFrame->menuBar()->actions();
    QCOMPARE(menus.size(), 3);
    QCOMPARE(menus[0]->text(), QString("&File"));
    QCOMPARE(actionTexts(menus[0]->menu()), QStringList({"&Convert", "-", "E&xit"}));
    QCOMPARE(menus[1]->text(), QString("&Options"));
    QCOMPARE(actionTexts(menus[1]->menu()), QStringList({"&Extended RIB"}));
    QVERIFY(action("extended")->isCheckable() && !action("extended")->isChecked());
    QCOMPARE(menus[2]->text(), QString("&Help"));
    QCOMPARE(actionTexts(menus[2]->menu()), QStringList({"&About..."}));
    QCOMPARE(action("convert")->shortcut(), QKeySequence(Qt::Key_F12));

    const struct {
      const char* action;
      const char* hint;
    } hints[] = {
        {"convert", "Convert RIB file ZEL file"},
        {"about", "Display version and copyright information"},
        {"exit", "Exit RIB to Zelvane"},
    };
    for (const auto& h : hints) {
      QVERIFY(action(h.action)->showStatusText(gApp->fFrame));
      QCOMPARE(gApp->fFrame->statusBar()->currentMessage(), QString(h.hint));
    }
  }

  void theF12KeyChoosesConvert() {
    QApplication::setActiveWindow(gApp->fFrame);
    QVERIFY(QTest::qWaitForWindowActive(gApp->fFrame));
    int asked = 0;
    gApp->fChooseFile = [&](QWidget*, TOpenSaveData&) {
      ++asked;
      return false;
    };
    QTest::keyClick(gApp->fFrame, Qt::Key_F12);
    QCOMPARE(asked, 1);
  }

  void theAboutBoxShowsNameVersionAndIcon() {
    bool shown = answerModal([] { action("about")->trigger(); },
                             [](QWidget& box) {
                               QCOMPARE(box.windowTitle(), QString("About RIB to Zelvane"));
                               QCOMPARE(box.findChild<QLabel*>("version")->text(),
                                        QString("RIB to Zelvane Version 1.01"));
                               QVERIFY(!box.findChild<QLabel*>("icon")->pixmap().isNull());
                               QCOMPARE(box.findChild<QPushButton*>("ok")->text(), QString("OK"));
                             });
    QVERIFY(shown);
  }

  void exitClosesTheMainWindow() {
    action("exit")->trigger();
    QVERIFY(!gApp->fFrame->isVisible());
    gApp->fFrame->show();
    QVERIFY(QTest::qWaitForWindowExposed(gApp->fFrame));
  }

  // The open dialog asks for an existing RIB file; the save dialog confirms
  // overwriting and adds no extension.
  void theFileDialogsAskForTheirKindOfFile() {
    auto open = makeFileDialog(gApp->fFrame, gApp->fInputData);
    QCOMPARE(open->nameFilters(), QStringList({"RIB Files (*.RIB *.RIB.GZ)", "All Files (*)"}));
    QCOMPARE(open->selectedNameFilter(), QString("RIB Files (*.RIB *.RIB.GZ)"));
    QCOMPARE(open->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(open->acceptMode(), QFileDialog::AcceptOpen);
    auto save = makeFileDialog(gApp->fFrame, gApp->fOutputData);
    QCOMPARE(save->nameFilters(), QStringList({"Scene Files (*.ZEL)", "All Files (*)"}));
    QCOMPARE(save->acceptMode(), QFileDialog::AcceptSave);
    QVERIFY(!save->testOption(QFileDialog::DontConfirmOverwrite));
    QCOMPARE(save->defaultSuffix(), QString());
  }

  void theFiltersMatchNamesWhateverTheirCase() {
    scratch dir;
    for (const char* name : {"scene.rib", "SHOT.RIB", "Mixed.Rib", "notes.txt", "out.zel"})
      dir.write(name, "");
    TOpenSaveData input = gApp->fInputData;
    input.directory = dir.file("");
    auto open = makeFileDialog(nullptr, input);
    QTRY_COMPARE(listed(*open), QStringList({"Mixed.Rib", "SHOT.RIB", "scene.rib"}));

    TOpenSaveData output = gApp->fOutputData;
    output.directory = dir.file("");
    auto save = makeFileDialog(nullptr, output);
    QTRY_COMPARE(listed(*save), QStringList({"out.zel"}));
  }

  void aChosenFilterIsOfferedAgainNextTime() {
    scratch dir;
    QString path = dir.write("scene.rib", "");
    TOpenSaveData data = gApp->fInputData;
    data.directory = dir.file("");
    bool shown = answerModal([&] { QVERIFY(runFileDialog(nullptr, data)); },
                             [&](QWidget& modal) {
                               auto& dialog = static_cast<QFileDialog&>(modal);
                               dialog.selectNameFilter("All Files (*)");
                               dialog.selectFile(path);
                               static_cast<QDialog&>(dialog).accept();
                             });
    QVERIFY(shown);
    QCOMPARE(data.fileName, path);
    QCOMPARE(data.selectedFilter, QString("All Files (*)"));
    auto again = makeFileDialog(nullptr, data);
    QCOMPARE(again->selectedNameFilter(), QString("All Files (*)"));
  }
};

QObject* makeMainWindowTest() {
  return new MainWindowTest;
}

#include "mainwindow_test.moc"

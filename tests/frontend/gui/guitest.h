// Helpers of the desktop program's tests. They run inside one TRendApp, as
// conversions in one run of the program do, and answer the modal dialogs from
// timers, since a modal run returns only when its dialog closes.
#pragma once

#include <QString>
#include <functional>

#include "tests/support/files.h"
#include "tests/support/scratchdir.h"

class QWidget;
class TProgressDialog;
class TRendEdit;

// The test folder of the other suites, in Qt's words.
class scratch {
 public:
  QString file(const QString& name) const {
    return QString::fromStdString(dir_.file(name.toStdString()));
  }
  QString write(const QString& name, const QByteArray& bytes) const {
    return QString::fromStdString(dir_.write(name.toStdString(), bytes.toStdString()));
  }

 private:
  scratchdir dir_;
};

inline QByteArray readAll(const QString& path) {
  return QByteArray::fromStdString(readFile(path.toStdString()));
}

struct convertresult {
  bool dialogShown = false;
  QString status;  // the status line when the dialog had finished
  QString log;     // the main window's log at that moment
};

// Runs File, Convert with the two paths in place of the file dialogs. When the
// dialog has finished, notes the outcome, calls `finished` and presses OK.
// While it runs, `running` is called now and then; it may close the dialog.
using dialogcheck = std::function<void(TProgressDialog&)>;
convertresult convert(const QString& input, const QString& output, const dialogcheck& running = {},
                      const dialogcheck& finished = {});

// Calls `answer` with the first modal widget that comes up while `action`
// runs, then closes that widget. Returns false when none came up.
bool answerModal(const std::function<void()>& action,
                 const std::function<void(QWidget& modal)>& answer);

// "WorldBegin", n spheres, "WorldEnd": one statement a line.
QByteArray spheres(int n);

// Fills the text with `count` lines of `columns` characters and looks at it
// as drawn from the top: how many lines are shown whole, and whether each of
// them stands on one line of the screen.
struct filledtext {
  int linesShown = 0;
  bool oneLineEach = false;
};
filledtext fill(TRendEdit& edit, int count, int columns);

// Helpers of the desktop program's tests. They run inside one TRendApp, as
// conversions in one run of the program do, and answer the modal dialogs from
// timers, since a modal run returns only when its dialog closes.
#pragma once

#include <QString>
#include <functional>

#include "tests/support/files.h"
#include "tests/support/scratchdir.h"
#include "tools/gui/guidriver.h"

class QWidget;
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

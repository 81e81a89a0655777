// Drives the desktop program's File, Convert as a user would, for the tools
// that take pictures of its windows or time it, and for its tests. It runs
// inside a TRendApp whose main window is up, and answers the modal status
// dialog from timers, since a modal run returns only when its dialog closes.
#pragma once

#include <QString>
#include <functional>

class TProgressDialog;

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

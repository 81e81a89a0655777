#include "frontend/gui/rendedit.h"

#include <QFontDatabase>
#include <QScrollBar>

#include "frontend/gui/msgwindow.h"

TRendEdit::TRendEdit(int columns, int lines, QWidget* parent)
    : QPlainTextEdit(parent), fColumns(columns), fLines(lines) {
  // Message lines are lined up in columns (the quoted token, the line
  // number), which a fixed-pitch font keeps readable.
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  // The user can read, select and copy, but not type.
  setReadOnly(true);
}

TRendEdit::~TRendEdit() {
  if (gMsgWindow == this) gMsgWindow = nullptr;
}

void TRendEdit::print(const char* line) {
  appendPlainText(QString::fromUtf8(line));
}

// The text area itself is columns by lines; the frame, the document margin
// and room for the vertical scroll bar come on top, so that a full line still
// fits once the log is long enough to scroll.
QSize TRendEdit::sizeHint() const {
  QFontMetrics metrics(font());
  int margin = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  // The advance of a whole line, as characters may be fractions of a pixel wide.
  int width = metrics.horizontalAdvance(QString(fColumns, QChar('M'))) + margin +
              verticalScrollBar()->sizeHint().width();
  int height = fLines * metrics.lineSpacing() + margin;
  return QSize(width, height);
}

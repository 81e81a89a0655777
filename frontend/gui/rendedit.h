// The read-only text that holds message lines: the log of the main window and
// the text of the "RIB Messages" window.
#pragma once

#include <QPlainTextEdit>

class TRendEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  // Asks for room for `columns` by `lines` characters of its font.
  TRendEdit(int columns, int lines, QWidget* parent = nullptr);
  // Clears gMsgWindow when this is the RIB Messages text.
  ~TRendEdit() override;

  // Appends one line.
  void print(const char* line);

  QSize sizeHint() const override;

 private:
  int fColumns;
  int fLines;
};

// The main window: its whole client area is the log.
#pragma once

#include <QMainWindow>

class TProgressDialog;

class TRendFrame : public QMainWindow {
  Q_OBJECT

 public:
  TRendFrame(const QString& title, QWidget* client);
  // Closing the main window cancels a running conversion first, so that the
  // scene file keeps whole records whatever closes it.
  void closeEvent(QCloseEvent* event) override;

  // The running conversion dialog, null at all other times.
  static TProgressDialog* fProgressDialog;

 protected:
  // One local file dropped on the window starts Convert with it as the input.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
};

// Sizes a window around its client's wish. Qt would cut a window that is
// shown unsized to two thirds of the screen; 80 columns must fit.
void fitToClient(QMainWindow* frame);

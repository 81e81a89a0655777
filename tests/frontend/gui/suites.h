// The test suites of the desktop program, one Qt Test object each.
#pragma once

class QObject;

QObject* makeMainWindowTest();
QObject* makeConvertTest();
QObject* makeMsgWindowTest();
QObject* makePreviewWindowTest();

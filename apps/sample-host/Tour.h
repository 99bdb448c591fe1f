#pragma once

class MainWindow;
class QString;
class QWidget;

// Saves `widget` as <outputFolder>/<name>.png; false when it could not.
bool SaveScreenshot(QWidget *widget, const QString &outputFolder, const QString &name);

// Saves `dialog` as it opened as <name>.png, then each other tab of its tab control that a
// user can open as <name>-<tab>.png ("Paper Size" gives "paper-size"); disabled tabs are
// left out. The tab it opened on is current again afterwards. False when a picture could
// not be written.
bool SaveDialog(QWidget *dialog, const QString &outputFolder, const QString &name);

// Runs every tour step unattended: photographs the main window, then each step's dialog
// (every tab of it) before closing it, and writes every report as a PDF. Returns 0 when
// every screenshot and PDF was written.
int RunTour(MainWindow &window, const QString &outputFolder);

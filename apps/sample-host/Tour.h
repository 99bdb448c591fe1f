#pragma once

#include <QString>

class MainWindow;

// Runs the window's tour steps one after the other: triggers each action, photographs
// the dialog it opens (if any) into `<outputFolder>/<name>.png` and closes it. The main
// window itself is saved as main-window.png. Returns 0 when every step ran.
int RunTour(MainWindow &window, const QString &outputFolder);

#pragma once

class MainWindow;

// The "Reports" menu: prints the sample general report into the output folder.
void addReportMenu(MainWindow &window);

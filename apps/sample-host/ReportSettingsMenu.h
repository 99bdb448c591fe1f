#pragma once

class MainWindow;

// The "Reports" menu: the report filters and report fields dialogs on the sample report
// configuration file (or one the user picks), with the file shown in the log afterwards.
void addReportSettingsMenu(MainWindow &window);

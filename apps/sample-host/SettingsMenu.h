#pragma once

class MainWindow;

// The workstation's settings: the printer configurations, page setup, layout and report
// fonts dialogs, a test page, and the check a host makes on start-up.
void addSettingsMenu(MainWindow &window);

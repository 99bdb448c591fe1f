#pragma once

class MainWindow;

// The printing menu: prints a test page with a printer configuration.
void addPrintingMenu(MainWindow &window);

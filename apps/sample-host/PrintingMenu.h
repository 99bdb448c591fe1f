#pragma once

class MainWindow;

// The printing menu: the page setup of a printer configuration, and a test page printed
// with one.
void addPrintingMenu(MainWindow &window);

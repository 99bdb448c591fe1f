#pragma once

class MainWindow;

// The printing menu: the printer configurations, the page setup of one, and a test page
// printed with one; and the check of the printer configurations in the library menu.
void addPrintingMenu(MainWindow &window);

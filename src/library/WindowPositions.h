#pragma once

// Dialog positions, kept per user under the window-positions key as the record
// "top,left,width,height" in twips (1440 to the inch at the screen's logical resolution).
// A position is applied as stored, with no clamping to the screen.

#include <QString>

class QWidget;

namespace bravcpl5 {

// Moves `form` to the stored place (and size when `restoreSize`). Stops at the first
// field that is not a number, keeping what was already applied; a record that does not
// have exactly four fields is ignored.
void RestoreWindowPosition(const QString &name, QWidget *form, bool restoreSize);
void SaveWindowPosition(const QString &name, QWidget *form);

} // namespace bravcpl5

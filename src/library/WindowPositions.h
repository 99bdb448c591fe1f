#pragma once

// Dialog positions, kept per user under the window-positions key as the record
// "top,left,width,height" in twips (1440 to the inch at the screen's logical resolution).
// The record is the window's outer frame (caption and borders included), saved and restored
// as the same thing, so that a dialog opened again lands exactly where it was left. A
// position is applied as stored, with no clamping to the screen.

#include <QString>

class QWidget;

namespace bravcpl5 {

// Moves `form`'s frame to the stored place (and gives it the stored size when `restoreSize`).
// Stops at the first field that is not a number, or at a size no window can have (negative,
// or beyond what a window system addresses), keeping what was already applied; a record
// that does not have exactly four fields is ignored. Called before the form is first shown,
// so that the window manager places the frame rather than the client area there; the size
// is made the frame's once the window manager has framed the form.
void RestoreWindowPosition(const QString &name, QWidget *form, bool restoreSize);
void SaveWindowPosition(const QString &name, QWidget *form);

} // namespace bravcpl5

#pragma once

// How wide a window must be for the caption its window manager draws to show its title
// whole.

class QWidget;

namespace bravcpl5 {

// The title as the platform shows it (on X11 and Wayland with " — " and the application's
// display name after it) in a bold font of the window's own size, beside the caption's
// icon and its minimize, maximize and close buttons.
int CaptionWidth(const QWidget *window);

} // namespace bravcpl5

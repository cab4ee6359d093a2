// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Hides a dialog, which ends its exec(), and leaves its picture in its place until the program
/// serves events again: by then the next window is shown. Without it there would be nothing on the
/// screen while the adapter code blocks the thread in between. Wayland shows no window of a blocked
/// program; there is no picture there.
void hide_and_stay_painted(QWidget& dialog);

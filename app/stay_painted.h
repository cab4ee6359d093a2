// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Hides a dialog, which ends its exec(), and shows a picture of it in its place until the program
/// processes events again: by then the next window is shown. Without the picture, the screen would
/// be empty while the adapter code blocks the thread. On Wayland a blocked program cannot show a
/// window, so there is no picture.
void hide_and_stay_painted(QWidget& dialog);

// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

class QString;
class QWidget;

/// The icon of every window.
QIcon window_icon();

/// Gives a dialog its fixed size, its title ("Velmoran Ostrel", if no other is given) and the icon.
void set_dialog_looks(QWidget& dialog, int width, int height);
void set_dialog_looks(QWidget& dialog, int width, int height, const QString& title);

// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <vector>

class QWidget;

/// What a Modal_Robot does with a modal widget. Returns nothing, or why it could not be done. It is
/// called from the event loop: never use a QVERIFY inside.
using Modal_Action = std::function<QString(QWidget& modal)>;

/// Clicks the visible and enabled button with this caption; "&" in captions does not count.
Modal_Action press_button(const QString& caption);

/// Clicks the visible and enabled button with this object name.
Modal_Action press_object(const QString& object_name);

/// Presses a key such as Qt::Key_Escape or Qt::Key_Return in the modal widget.
Modal_Action press_key(Qt::Key key);

/// Closes the window as its frame's close button does.
Modal_Action close_by_frame();

/// Replaces the text of the line edit with this object name by typing.
Modal_Action type_into(const QString& object_name, const QString& text);

/// Enters a file name into a QFileDialog that is not the system's own
/// (Qt::AA_DontUseNativeDialogs), and accepts. A dialog for saving then asks before it overwrites,
/// which is a modal box of its own.
Modal_Action choose_file(const QString& path);

/// Does nothing: the test itself will see to the widget's end.
Modal_Action leave_open();

/// Does one thing after the other, up to the first that cannot be done or that ends the widget.
Modal_Action in_order(const std::vector<Modal_Action>& actions);

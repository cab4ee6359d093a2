// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

/// What a Modal_Robot does with a modal widget. Returns nothing, or why it could not be done. It is
/// called from the event loop: do not use QVERIFY inside.
using Modal_Action = std::function<QString(QWidget& modal)>;
Q_DECLARE_METATYPE(Modal_Action)

/// Clicks the visible and enabled button with this caption; "&" in captions is ignored.
Modal_Action press_button(const QString& caption);

/// Clicks the visible and enabled button with this object name.
Modal_Action press_object(const QString& object_name);

/// Presses a key such as Qt::Key_Escape or Qt::Key_Return in the modal widget.
Modal_Action press_key(Qt::Key key);

/// Closes the window as the title bar's close button does.
Modal_Action close_by_frame();

/// Replaces the text of the line edit with this object name by typing.
Modal_Action type_into(const QString& object_name, const QString& text);

/// Enters a file name into a QFileDialog that is not the system's own
/// (Qt::AA_DontUseNativeDialogs), and accepts. A dialog for saving asks before it overwrites, in
/// another modal box.
Modal_Action choose_file(const QString& path);

/// Does nothing: the test itself closes the widget.
Modal_Action leave_open();

/// Does the actions in order, up to the first that is not possible or that ends the widget.
Modal_Action in_order(const std::vector<Modal_Action>& actions);

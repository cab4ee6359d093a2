// SPDX-License-Identifier: MIT

#include "settings/file_dialogs.h"

#include <QDir>
#include <QFileDialog>

namespace {

const char* const text_files = "Text files (*.txt)";

} // namespace

QString ask_where_to_save() {
    return QFileDialog::getSaveFileName(nullptr, "Save Settings File", QDir::homePath(),
                                        text_files);
}

QString ask_what_to_load() {
    QFileDialog dialog;
    dialog.setWindowTitle("Select file");
    dialog.setNameFilter(text_files);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

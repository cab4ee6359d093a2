// SPDX-License-Identifier: MIT

// Saves every page of every form as a PNG file: form_screenshots <folder>.
// Without a display: QT_QPA_PLATFORM=offscreen.
#include "tests/forms/form_gallery.h"
#include "tests/forms/sample_content.h"

#include <QApplication>
#include <QDir>
#include <QStackedWidget>

#include <cstdio>

namespace {

/// Saves the form as it is now; false if the file cannot be written.
bool save(QWidget& form, const QDir& folder, const QString& name) {
    QApplication::processEvents();
    return form.grab().save(folder.filePath(name + ".png"));
}

bool save_form(const Gallery_Form& entry, const QDir& folder) {
    const auto form = build_form(entry.class_name);
    fill_with_samples(*form);
    form->show();
    auto* stack = form->findChild<QStackedWidget*>("stackedWidget");
    if (!stack) {
        return save(*form, folder, entry.class_name);
    }
    for (int page = 0; page < stack->count(); ++page) {
        stack->setCurrentIndex(page);
        if (!save(*form, folder, entry.class_name + QString("_%1").arg(page))) {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::fputs("form_screenshots <folder>\n", stderr);
        return 2;
    }
    for (const Gallery_Form& entry : all_forms()) {
        if (!save_form(entry, QDir(argv[1]))) {
            std::fprintf(stderr, "cannot save %s\n", qPrintable(entry.class_name));
            return 1;
        }
    }
    return 0;
}

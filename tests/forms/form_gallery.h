// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

/// One form, and the window or dialog that shows it.
struct Gallery_Form {
    QString class_name; ///< As in the form: "Corvane_LITE_UI", "Yes_No_Dialog".
    QSize fixed_size;   ///< The size that the constructor of the window or dialog fixes.
    std::function<std::unique_ptr<QWidget>()> set_up; ///< The form in its design size, as built.
};

/// All ten forms: the three main windows first, then the seven dialogs.
const std::vector<Gallery_Form>& all_forms();

/// The form of that class name, built with its fixed size. Throws std::out_of_range if there is
/// none.
std::unique_ptr<QWidget> build_form(const QString& class_name);

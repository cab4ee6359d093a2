// SPDX-License-Identifier: MIT

#pragma once

#include "app/assistance.h"

#include <QMainWindow>

#include <memory>

/// Builds a window's form. To be called from the window's own initialiser list, so that all widgets
/// exist before the parts that refer to them.
template <class Form>
std::unique_ptr<Form> build_form(QMainWindow& window) {
    auto form = std::make_unique<Form>();
    form->setupUi(&window);
    assist_keyboard_and_screen_reader(window);
    return form;
}

// SPDX-License-Identifier: MIT

#include "windows/halvern_velmoran_plus.h"

#include "pages/model_traits.h"
#include "ui_corvane_ui.h"
#include "windows/form.h"

Halvern_Velmoran_PLUS::Halvern_Velmoran_PLUS(QWidget* parent)
    : QMainWindow(parent),
      ui(build_form<Ui::Corvane_UI>(*this)),
      controller(*this, plus_model, window_widgets(*ui)),
      wizard(controller.session, controller.menu, controller.mouse_speed) {
    controller.set_up_window();
    wizard.run_at_start();
}

Halvern_Velmoran_PLUS::~Halvern_Velmoran_PLUS() { controller.close(); }

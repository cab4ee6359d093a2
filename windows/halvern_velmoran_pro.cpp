// SPDX-License-Identifier: MIT

#include "windows/halvern_velmoran_pro.h"

#include "pages/model_traits.h"
#include "ui_corvane_pro_ui.h"
#include "windows/form.h"

Halvern_Velmoran_PRO::Halvern_Velmoran_PRO(QWidget* parent)
    : QMainWindow(parent),
      ui(build_form<Ui::Corvane_PRO_UI>(*this)),
      controller(*this, pro_model, window_widgets(*ui)),
      wizard(controller.session, controller.menu, controller.mouse_speed) {
    setWindowTitle("Corvane");
    controller.set_up_window();
    wizard.run_at_start();
}

Halvern_Velmoran_PRO::~Halvern_Velmoran_PRO() { controller.close(); }

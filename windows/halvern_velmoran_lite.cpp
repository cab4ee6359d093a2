// SPDX-License-Identifier: MIT

#include "windows/halvern_velmoran_lite.h"

#include "pages/model_traits.h"
#include "ui_corvane_lite_ui.h"
#include "windows/form.h"

Halvern_Velmoran_LITE::Halvern_Velmoran_LITE(QWidget* parent)
    : QMainWindow(parent),
      ui(build_form<Ui::Corvane_LITE_UI>(*this)),
      controller(*this, lite_model, window_widgets(*ui)) {
    controller.set_up_window();
    controller.connect_first_port();
}

Halvern_Velmoran_LITE::~Halvern_Velmoran_LITE() { controller.close(); }

// SPDX-License-Identifier: MIT

#include "app/make_main_window.h"
#include "windows/halvern_velmoran_lite.h"
#include "windows/halvern_velmoran_plus.h"
#include "windows/halvern_velmoran_pro.h"

std::unique_ptr<QMainWindow> make_main_window(const std::string& km_type) {
    if (km_type == "Lite") {
        return std::make_unique<Halvern_Velmoran_LITE>();
    }
    if (km_type == "Plus") {
        return std::make_unique<Halvern_Velmoran_PLUS>();
    }
    if (km_type == "Pro") {
        return std::make_unique<Halvern_Velmoran_PRO>();
    }
    return nullptr;
}

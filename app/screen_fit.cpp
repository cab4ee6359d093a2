// SPDX-License-Identifier: MIT

#include "app/screen_fit.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize main_window_size(1305, 693);
// Window managers put some 1 to 8 pixels around a window, and a title bar of 20 to 40 on top.
constexpr QSize frame_allowance(16, 48);

constexpr const char* scale_variable = "QT_SCALE_FACTOR";

} // namespace

double scale_that_fits(const QSize& free_area) {
    const QSize needed = main_window_size + frame_allowance;
    const double scale = std::min(double(free_area.width()) / needed.width(),
                                  double(free_area.height()) / needed.height());
    // Rounded down, so that it still fits.
    return std::min(1.0, std::floor(scale * 1000) / 1000);
}

bool scale_down_to_screen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    // Without a display nobody uses the window; that screen has 800 by 800 pixels.
    if (screen == nullptr || QGuiApplication::platformName() == "offscreen") {
        return false;
    }
    const double scale = scale_that_fits(screen->availableSize());
    if (scale >= 1) {
        return false;
    }
    bool is_set = false;
    const double current_scale = qEnvironmentVariable(scale_variable).toDouble(&is_set);
    qputenv(scale_variable, QByteArray::number(is_set ? scale * current_scale : scale));
    return true;
}

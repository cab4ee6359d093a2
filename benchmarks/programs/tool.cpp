// SPDX-License-Identifier: MIT

// The tool from its model dialog on, without a user: halvern-bench-tool <model> <task>. The model
// is "Lite", "Plus" or "Pro"; tasks.h describes the tasks.

#include "app/make_main_window.h"
#include "app/start_up.h"
#include "benchmarks/programs/startup_driver.h"
#include "benchmarks/programs/tasks.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <exception>
#include <functional>

namespace {

bool is_filled(const QMainWindow& window) {
    return window.findChild<QLabel*>("label_Current_Hotkey_Trigger_Data")->text() == "Left Ctrl";
}

/// Runs the task when the switch's report has filled the pages. The window gives no signal for
/// this, so it is polled; the polling ends before anything is measured.
void await_filled_page(const QMainWindow& window, const std::function<void()>& next) {
    constexpr std::chrono::milliseconds look_interval{20};
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, &window, next] {
        if (is_filled(window)) {
            timer->stop();
            next();
        }
    });
    timer->start(look_interval);
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString model = arguments.value(1);
    const QString task = arguments.value(2);
    set_light_palette();

    const Startup_Driver driver(model,
                                [&task](const Startup_Driver& done, const QMainWindow& window) {
                                    const auto carry_out = [&task, &done] {
                                        carry_out_task(task, done.milliseconds_to_window());
                                    };
                                    if (task == "window") {
                                        carry_out();
                                    } else {
                                        await_filled_page(window, carry_out);
                                    }
                                });
    std::exception_ptr construction_failure;
    return run_tool(make_main_window, construction_failure);
}

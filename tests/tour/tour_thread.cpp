// SPDX-License-Identifier: MIT

#include "tests/tour/tour_thread.h"

#include "tests/tour/outside.h"
#include "tests/tour/stages.h"
#include "tests/tour/step_failed.h"

#include <QCoreApplication>
#include <QDir>
#include <QThread>

#include <array>
#include <cstdlib>
#include <memory>

namespace {

struct Stage {
    const char* name;
    void (*take)(Tour_Driver& driver, const QString& settings_file);
    const char* unit_names[2];
};

constexpr std::array stages = {
    Stage{"lite", take_lite_tour, {"unit 1  ", "unit 2  "}},
    Stage{"lite-installed", take_installed_tour, {"unit 1  ", "unit 2  "}},
    Stage{"plus-serial", take_plus_serial_tour, {"unit 1  ", "unit 2  "}},
    Stage{"pro-serial", take_pro_serial_tour, {"unit 1  ", "unit 2  "}},
    Stage{"plus-adapter",
          take_plus_adapter_tour,
          {"127.0.0.2 switch command: ", "127.0.0.3 switch command: "}},
    Stage{"pro-adapter",
          take_pro_adapter_tour,
          {"127.0.0.2 switch command: ", "127.0.0.3 switch command: "}},
};

[[noreturn]] void end_in_failure(const QString& stage, const char* reason) {
    outside::print(stage.leftJustified(stage_column) + " FAILED: " + reason);
    // No destructor of the program may wait for a window that nobody answers.
    std::_Exit(EXIT_FAILURE);
}

void take_stage(const Stage& stage) {
    const QDir folder(qEnvironmentVariable("HALVERN_TOUR_FOLDER"));
    Tour_Driver driver(stage.name, folder.path());
    driver.unit_names[0] = stage.unit_names[0];
    driver.unit_names[1] = stage.unit_names[1];
    try {
        stage.take(driver, folder.filePath(QString(stage.name) + "-settings.txt"));
        driver.end_program();
    } catch (const Step_Failed& failure) {
        try {
            driver.take_picture("FAILED");
        } catch (const Step_Failed& no_picture) {
            outside::print(no_picture.what());
        }
        end_in_failure(stage.name, failure.what());
    }
    outside::leave();
}

std::unique_ptr<QThread> guide;

} // namespace

void begin_tour() {
    const QString wanted = qEnvironmentVariable("HALVERN_TOUR_STAGE");
    for (const Stage& stage : stages) {
        if (wanted == stage.name) {
            guide.reset(QThread::create([&stage] { take_stage(stage); }));
            guide->start();
            qAddPostRoutine([] {
                guide->wait();
                guide.reset();
            });
            return;
        }
    }
    end_in_failure(wanted, "there is no such stage");
}

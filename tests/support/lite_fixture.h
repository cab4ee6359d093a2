// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/window_fixture.h"
#include "windows/halvern_velmoran_lite.h"

/// What a Lite asks when its line has opened.
inline const QByteArrayList question_list{"//rl", "//??", "//BP"};

inline void be_silent(Simulated_Switch& device) {
    Fault_Plan plan;
    plan.silence = true;
    device.set_faults(plan);
}

/// A Lite window and the simulated switch at the other end of its first listed port.
///
///     Lite_Fixture lite;
///     QVERIFY(lite.open_filled());
///     lite.combo("comboBox_KM_Control").setCurrentIndex(2);
///     QCOMPARE(lite.commands(), QByteArrayList{"//c3"});
class Lite_Fixture : public Window_Fixture {
public:
    Lite_Fixture() : Window_Fixture(Switch_Model::lite) {}

    Halvern_Velmoran_LITE& window() const {
        return static_cast<Halvern_Velmoran_LITE&>(Window_Fixture::window());
    }

protected:
    std::unique_ptr<QMainWindow> make_window() override {
        return std::make_unique<Halvern_Velmoran_LITE>();
    }
    void write_command(const std::string& command) override {
        window().writeCommand(std::string(command));
    }
};

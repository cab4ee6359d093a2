// SPDX-License-Identifier: MIT

#include "tests/settings/line_load_test.h"

#include "app/event_log.h"
#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"

void Line_Load_Test::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    log = std::make_unique<Log_Folder>();
    lines = Settings_Lines(model);
    fixture = std::make_unique<Settings_Fixture>(model);
    if (fixture->is_lite()) {
        // The others open it themselves.
        QCOMPARE(open_log(), 1);
    }
    QVERIFY(fixture->open_filled());
    fixture->robot.clear_snapshots();
    fixture->silence_switch();
    // So that a line which is not applied leaves something other than what its absence means.
    fixture->window_fixture.combo("comboBox_KM_Control").setCurrentIndex(3);
    fixture->window_fixture.combo("comboBox_USB_Control").setCurrentIndex(3);
    fixture->window_fixture.combo("comboBox_Enable_or_Disable_Cursor_Roll").setCurrentIndex(1);
    fixture->window_fixture.combo("comboBox_Select_Display_Mode").setCurrentIndex(1);
    (void)fixture->window_fixture.commands();
}

void Line_Load_Test::cleanup() {
    close_fixture(fixture);
    close_log();
    log.reset();
}

bool Line_Load_Test::load(int first_part_errors, int second_part_errors, int mode_errors) {
    return fixture->load_first_part(fixture->write(lines.text()), first_part_errors) &&
           fixture->wait_for_second_part(second_part_errors, mode_errors);
}

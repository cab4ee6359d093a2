// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"

#include <memory>

/// The window of any model on its serial line, for tests that hold for all three. The robot answers
/// the connection wizard.
std::unique_ptr<Window_Fixture> make_model_fixture(Switch_Model model, Modal_Robot& robot);

/// The differences between the models. Written out here, so that a wrong row of the tool's table is
/// noticed.
struct Model_Facts {
    bool has_audio;
    bool has_network;
    bool controls_fall_with_device; ///< with the device's closing, whether a switch answered or not
    bool clears_terminal_on_port_open;
    bool disarms_drag_after_read_back;
    bool logs_coordinate_lookup;
    bool forgives_bad_grid_position;
    bool arms_second_part_after_cancel;
};
const Model_Facts& model_row(Switch_Model model);

/// Adds one row for each model to the running test's data, with the column "model".
void add_model_rows();

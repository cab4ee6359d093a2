#pragma once

#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"
#include "windows/model.h"

#include <memory>

/// The window of any model on its serial line, for tests that hold for all three. The robot answers
/// the connection wizard.
std::unique_ptr<Window_Fixture> make_model_fixture(Switch_Model model, Modal_Robot& robot);

/// The table row of a model.
const Model& model_row(Switch_Model model);

/// Adds one row for each model to the running test's data, with the column "model".
void add_model_rows();

// SPDX-License-Identifier: MIT

#include "tests/support/model_fixture.h"

#include "tests/support/lite_fixture.h"
#include "tests/support/wizard_fixture.h"
#include "windows/halvern_velmoran_plus.h"
#include "windows/halvern_velmoran_pro.h"

#include <QTest>

Modal_Expectation serial_method() {
    return {.class_name = "Select_connection_method_Dialog",
            .action = in_order({press_object("radioButton_RS232"), press_button("Continue")})};
}

std::unique_ptr<Window_Fixture> make_model_fixture(Switch_Model model, Modal_Robot& robot) {
    switch (model) {
    case Switch_Model::lite:
        return std::make_unique<Lite_Fixture>();
    case Switch_Model::plus:
        return std::make_unique<Wizard_Fixture<Halvern_Velmoran_PLUS>>(model, robot);
    case Switch_Model::pro:
        return std::make_unique<Wizard_Fixture<Halvern_Velmoran_PRO>>(model, robot);
    }
    return nullptr;
}

const Model_Facts& model_row(Switch_Model model) {
    static constexpr Model_Facts lite{.has_audio = false,
                                      .has_network = false,
                                      .controls_fall_with_device = false,
                                      .clears_terminal_on_port_open = false,
                                      .disarms_drag_after_read_back = true,
                                      .logs_coordinate_lookup = true,
                                      .forgives_bad_grid_position = false,
                                      .arms_second_part_after_cancel = false};
    static constexpr Model_Facts plus{.has_audio = false,
                                      .has_network = true,
                                      .controls_fall_with_device = true,
                                      .clears_terminal_on_port_open = false,
                                      .disarms_drag_after_read_back = false,
                                      .logs_coordinate_lookup = false,
                                      .forgives_bad_grid_position = true,
                                      .arms_second_part_after_cancel = true};
    static constexpr Model_Facts pro{.has_audio = true,
                                     .has_network = true,
                                     .controls_fall_with_device = true,
                                     .clears_terminal_on_port_open = true,
                                     .disarms_drag_after_read_back = false,
                                     .logs_coordinate_lookup = false,
                                     .forgives_bad_grid_position = false,
                                     .arms_second_part_after_cancel = true};
    switch (model) {
    case Switch_Model::plus:
        return plus;
    case Switch_Model::pro:
        return pro;
    default:
        return lite;
    }
}

void add_model_rows() {
    QTest::addColumn<Switch_Model>("model");
    QTest::newRow("Lite") << Switch_Model::lite;
    QTest::newRow("Plus") << Switch_Model::plus;
    QTest::newRow("Pro") << Switch_Model::pro;
}

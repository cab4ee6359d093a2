// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"

/// What the method dialog of the connection wizard looks like, and the path through it to the
/// serial line.
Modal_Expectation serial_method();

/// A Plus or Pro window whose wizard has followed the serial path to a simulated switch.
template <class Window>
class Wizard_Fixture : public Window_Fixture {
public:
    /// @param modal_robot answers the wizard; there can be one robot at a time only.
    Wizard_Fixture(Switch_Model model, Modal_Robot& modal_robot)
        : Window_Fixture(model), robot(modal_robot) {}

    Window& window() const { return static_cast<Window&>(Window_Fixture::window()); }

protected:
    std::unique_ptr<QMainWindow> make_window() override {
        robot.expect(serial_method());
        return std::make_unique<Window>();
    }
    void write_command(const std::string& command) override {
        window().writeCommand(std::string(command));
    }

private:
    Modal_Robot& robot;
};

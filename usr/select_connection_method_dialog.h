// SPDX-License-Identifier: MIT

#pragma once

#include "usr/wizard_dialog.h"

#include <memory>

namespace Ui {
class Select_connection_method_Dialog;
}

/// The first step of the connection wizard: serial line or network. One object is used for all
/// runs; its radio buttons keep their state. Its constructor opens the event log.
class Select_connection_method_Dialog : public Wizard_Dialog {
    Q_OBJECT

public:
    explicit Select_connection_method_Dialog(QWidget* parent = nullptr);
    ~Select_connection_method_Dialog() override;

    /// The choice at the last Continue; both are false before the first one.
    [[nodiscard]] bool is_tcp_ip_selected() const { return tcp_ip_selected; }
    [[nodiscard]] bool is_rs232_selected() const { return rs232_selected; }

private slots:
    void on_pushButton_continue_clicked();

private:
    bool method_chosen = false;
    bool tcp_ip_selected = false;
    bool rs232_selected = false;
    std::unique_ptr<Ui::Select_connection_method_Dialog> ui;
};

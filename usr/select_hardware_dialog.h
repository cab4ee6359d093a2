// SPDX-License-Identifier: MIT

#pragma once

#include "usr/usr_searcher.h"
#include "usr/wizard_dialog.h"

#include <QString>

#include <memory>

namespace Ui {
class Select_hardware_Dialog;
}

/// Lets the user choose one of the adapters that answer a search: address, three spaces, name. The
/// search runs when the dialog is created and on Refresh. A search without an answer ends the
/// process with exit code 1, after the message box "No hardware online".
class Select_hardware_Dialog : public Wizard_Dialog, public USR_searcher {
    Q_OBJECT

public:
    explicit Select_hardware_Dialog(QWidget* parent = nullptr);
    ~Select_hardware_Dialog() override;

    /// Dotted address of the choice; empty if the search found nothing to choose from.
    ///
    /// It is the address at the combo box's index in all replies. An adapter that answers twice has
    /// one item in the combo box but two replies, so the addresses of the items after it are
    /// shifted.
    [[nodiscard]] QString get_selected_ip() const { return selected_ip; }

private slots:
    void on_comboBox_currentIndexChanged();
    void on_pushButton_Refresh_clicked();
    void on_pushButton_Continue_clicked();

private:
    void refresh_hardware_list();
    void fill_hardware_list();
    void remove_duplicate_items();
    void set_buttons_enabled(bool enabled);
    void take_selected_ip();

    bool list_ready = false; ///< the combo box is filled; its index changes count
    QString selected_ip;
    std::unique_ptr<Ui::Select_hardware_Dialog> ui;
};

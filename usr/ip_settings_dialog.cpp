// SPDX-License-Identifier: MIT

#include "usr/ip_settings_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/message_box.h"
#include "ui_ip_settings_dialog.h"
#include "usr/dotted_shape.h"
#include "usr/ip_allocation.h"
#include "usr/usr_configurator.h"

#include <QTimer>
#include <QWindow>

namespace {

// Time to paint the waiting box before the thread is blocked.
constexpr int wait_for_painting_ms = 50;

// The time for an adapter to return with its new settings.
constexpr int wait_after_dhcp_ms = 6000;
constexpr int wait_after_static_ms = 3500;

} // namespace

IP_Settings_Dialog::IP_Settings_Dialog(const QString& given_current_ip,
                                       const QString& given_username, const QString& given_password,
                                       const QString& given_ip_allocation, QWidget* parent)
    : Wizard_Dialog(parent),
      current_ip(given_current_ip),
      ip_allocation(given_ip_allocation),
      username(given_username),
      password(given_password),
      wait_box(std::make_unique<QMessageBox>()),
      ui(std::make_unique<Ui::IP_Settings_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 500, 450);
    ui->label_IP->setTextFormat(Qt::PlainText);
    // Message boxes are modal by default; this one is shown next to the dialog.
    wait_box->setWindowModality(Qt::NonModal);
    load_IP_settings();
    assist_keyboard_and_screen_reader(*this);
}

IP_Settings_Dialog::~IP_Settings_Dialog() = default;

void IP_Settings_Dialog::load_IP_settings() {
    show_allocation();
    configurator = std::make_unique<USR_configurator>(current_ip, username, password);
    ui->lineEdit_IPv4_Address->setText(configurator->get_static_ip());
    ui->lineEdit_Subnet_Mask->setText(configurator->get_subnet_mask());
    ui->lineEdit_Default_Gateway->setText(configurator->get_gateway());
    static_ip = configurator->get_static_ip();
    subnet_mask = configurator->get_subnet_mask();
    gateway = configurator->get_gateway();
    usr_name = configurator->get_usr_name();
    release_configurator();
}

void IP_Settings_Dialog::show_allocation() {
    if (ip_allocation_of(ip_allocation) == IP_Allocation::static_address) {
        show_Static_state();
    } else {
        show_DHCP_state();
    }
    ui->label_IP->setText(current_ip);
}

void IP_Settings_Dialog::show_DHCP_state() {
    set_line_edits_enabled(false);
    ui->radioButton_DHCP->setChecked(true);
    ui->radioButton_Static->setChecked(false);
}

void IP_Settings_Dialog::show_Static_state() {
    set_line_edits_enabled(true);
    ui->radioButton_DHCP->setChecked(false);
    ui->radioButton_Static->setChecked(true);
}

void IP_Settings_Dialog::set_line_edits_enabled(bool enabled) {
    ui->lineEdit_IPv4_Address->setEnabled(enabled);
    ui->lineEdit_Subnet_Mask->setEnabled(enabled);
    ui->lineEdit_Default_Gateway->setEnabled(enabled);
}

void IP_Settings_Dialog::set_buttons_enabled(bool enabled) {
    ui->pushButton_Apply_IP->setEnabled(enabled);
    ui->pushButton_Connect->setEnabled(enabled);
    ui->radioButton_DHCP->setEnabled(enabled);
    ui->radioButton_Static->setEnabled(enabled);
}

void IP_Settings_Dialog::on_radioButton_DHCP_clicked() {
    ip_allocation = text_of(IP_Allocation::dhcp);
    show_DHCP_state();
}

void IP_Settings_Dialog::on_radioButton_Static_clicked() {
    ip_allocation = text_of(IP_Allocation::static_address);
    show_Static_state();
}

void IP_Settings_Dialog::on_pushButton_Apply_IP_clicked() {
    set_buttons_enabled(false);
    showMessage_for_waiting();
    QTimer::singleShot(wait_for_painting_ms, Qt::PreciseTimer, this, SLOT(apply_IP()));
}

void IP_Settings_Dialog::showMessage_for_waiting() {
    // The dialog is modal while it runs and would block input to a window that does not belong to
    // it. The user must be able to close the waiting box.
    wait_box->winId();
    winId();
    wait_box->windowHandle()->setTransientParent(windowHandle());
    set_message_box_look("Please wait for changes to be made", QMessageBox::Information,
                         wait_box.get());
}

void IP_Settings_Dialog::apply_IP() {
    configurator = std::make_unique<USR_configurator>(
        current_ip, ui->lineEdit_IPv4_Address->text(), ui->lineEdit_Subnet_Mask->text(),
        ui->lineEdit_Default_Gateway->text(), ip_allocation, username, password);
    if (!is_IP_allocation_selected()) {
        show_information_box("Select IP allocation", QMessageBox::Warning);
        forget_close();
        return;
    }
    if (!are_valid_ip_texts() || configurator->setup_USR() < 0) {
        end_failed_apply();
        return;
    }
    const int wait_ms =
        ui->radioButton_DHCP->isChecked() ? wait_after_dhcp_ms : wait_after_static_ms;
    QTimer::singleShot(wait_ms, Qt::PreciseTimer, this,
                       SLOT(search_USR_in_network_after_changing()));
    forget_close();
}

bool IP_Settings_Dialog::is_IP_allocation_selected() const {
    return ui->radioButton_DHCP->isChecked() || ui->radioButton_Static->isChecked();
}

bool IP_Settings_Dialog::are_valid_ip_texts() const {
    return is_valid_ip_text(ui->lineEdit_IPv4_Address->text()) &&
           is_valid_ip_text(ui->lineEdit_Subnet_Mask->text()) &&
           is_valid_ip_text(ui->lineEdit_Default_Gateway->text());
}

bool IP_Settings_Dialog::is_valid_ip_text(const QString& text) const {
    // A number above 255 passes here and is found when the frame is built.
    return !ui->radioButton_Static->isChecked() || has_dotted_shape(text);
}

void IP_Settings_Dialog::end_failed_apply() {
    show_information_box("Error in applying IP", QMessageBox::Warning);
    release_configurator();
    set_buttons_enabled(true);
    forget_close();
}

void IP_Settings_Dialog::search_USR_in_network_after_changing() {
    current_ip.clear();
    current_ip = configurator->get_IP_after_hanging();
    usr_name = configurator->get_usr_name();
    static_ip = configurator->get_static_ip();
    subnet_mask = configurator->get_subnet_mask();
    gateway = configurator->get_gateway();
    ui->label_IP->setText(current_ip);
    release_configurator();
    wait_box->close();
    show_information_box("The IP was applied successfully", QMessageBox::Information);
    set_buttons_enabled(true);
}

void IP_Settings_Dialog::release_configurator() { configurator.reset(); }

void IP_Settings_Dialog::on_pushButton_Connect_clicked() {
    forget_close();
    hide();
}

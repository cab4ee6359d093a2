// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/find_child.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

#include <QRadioButton>

/// The connection wizard during the window's construction, from each dialog to the next.
class Test_Wizard_Paths : public Network_Test {
    Q_OBJECT

private slots:
    void the_network_path_leads_through_its_dialogs_to_a_green_window();
    void the_serial_path_leads_to_a_green_window();
    void a_dialog_closed_by_its_frame_leaves_a_red_window_data();
    void a_dialog_closed_by_its_frame_leaves_a_red_window();
    void after_a_closed_dialog_the_wizard_works_later_data();
    void after_a_closed_dialog_the_wizard_works_later();
    void escape_in_the_first_method_dialog_sends_nothing();
    void escape_in_the_hardware_dialog_goes_on_to_the_login();
    void escape_in_the_login_goes_on_without_credentials();
    void escape_in_the_ip_settings_makes_the_link();
    void a_refused_login_brings_a_new_empty_dialog();
    void a_refused_login_can_be_left_without_a_link();
    void a_failed_reading_brings_a_new_login();
    void a_list_line_is_the_address_three_blanks_and_the_name_data();
    void a_list_line_is_the_address_three_blanks_and_the_name();
    void the_chosen_adapter_is_the_one_linked();
    void the_link_goes_to_the_address_found_after_a_change();
    void the_method_dialog_keeps_its_choice();
    void escape_after_a_continue_goes_the_same_path_again();
    void escape_after_a_close_counts_as_closed();
    void a_method_that_is_neither_is_complained_about();
};

namespace {

void add_dialog_rows() {
    QTest::addColumn<int>("dialogs_before");
    QTest::newRow("method") << 0;
    QTest::newRow("hardware") << 1;
    QTest::newRow("login") << 2;
    QTest::newRow("IP settings") << 3;
}

/// Why a radio button is not checked; empty if it is.
Modal_Action check_chosen(const QString& radio_button) {
    return [radio_button](QWidget& dialog) {
        const bool chosen = find_child<QRadioButton>(dialog, radio_button).isChecked();
        return chosen ? QString() : radio_button + " is not checked";
    };
}

Modal_Action check_empty_login() {
    return [](QWidget& dialog) {
        const bool empty = find_child<QLineEdit>(dialog, "lineEdit_username").text().isEmpty() &&
                           find_child<QLineEdit>(dialog, "lineEdit_password").text().isEmpty();
        return empty ? QString() : "the new login dialog is not empty";
    };
}

} // namespace

void Test_Wizard_Paths::the_network_path_leads_through_its_dialogs_to_a_green_window() {
    at->expect_network_path();
    at->open();
    QVERIFY(!at->is_connected());
    QVERIFY(at->wait_connected());
    QVERIFY(at->is_filled());
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::network_widgets());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
    QCOMPARE(at->label("label_name_of_USR").text(), QString("  Name: OSTREL"));
    QVERIFY(!at->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(at->button("pushButton_Admin_Settings").isEnabled());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->device.received_bytes().isEmpty());
}

void Test_Wizard_Paths::the_serial_path_leads_to_a_green_window() {
    at->robot.expect(choose_serial());
    at->open();
    QVERIFY(!at->is_connected());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::serial_widgets());
    QCOMPARE(Network_Fixture::socket_count(), 0);
    QVERIFY(at->network.frames().isEmpty());
}

void Test_Wizard_Paths::a_dialog_closed_by_its_frame_leaves_a_red_window_data() {
    add_dialog_rows();
}

void Test_Wizard_Paths::a_dialog_closed_by_its_frame_leaves_a_red_window() {
    QFETCH(const int, dialogs_before);
    at->expect_network_path(dialogs_before);
    at->robot.expect(close_dialog(network_path().at(dialogs_before)));
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    Network_Fixture::settle();
    QVERIFY(at->window().isVisible());
    QVERIFY(!at->is_connected());
    QVERIFY(at->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(at->button("pushButton_Connection_Settings").isEnabled());
    QCOMPARE(at->taken, QByteArrayList());
    QVERIFY(at->device.received_bytes().isEmpty());
    QCOMPARE(Network_Fixture::socket_count(), 0);
}

void Test_Wizard_Paths::after_a_closed_dialog_the_wizard_works_later_data() { add_dialog_rows(); }

void Test_Wizard_Paths::after_a_closed_dialog_the_wizard_works_later() {
    QFETCH(const int, dialogs_before);
    at->expect_network_path(dialogs_before);
    at->robot.expect(close_dialog(network_path().at(dialogs_before)));
    at->open();
    at->expect_network_path();
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
}

void Test_Wizard_Paths::escape_in_the_first_method_dialog_sends_nothing() {
    at->robot.expect(escape_dialog("Select_connection_method_Dialog"));
    at->open();
    Network_Fixture::settle();
    QVERIFY(!at->is_connected());
    QCOMPARE(at->taken, QByteArrayList());
    QVERIFY(at->network.frames().isEmpty());
    QVERIFY(at->device.received_bytes().isEmpty());
    QCOMPARE(at->combo("comboBox_SelectPort").count(), 0);
}

void Test_Wizard_Paths::escape_in_the_hardware_dialog_goes_on_to_the_login() {
    at->robot.expect(choose_network());
    at->robot.expect(escape_dialog("Select_hardware_Dialog"));
    at->robot.expect(log_in());
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY(at->wait_filled());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
}

void Test_Wizard_Paths::escape_in_the_login_goes_on_without_credentials() {
    at->expect_network_path(2);
    at->expect_login_without_credentials();
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
    QCOMPARE(at->label("label_name_of_USR").text(), QString("  Name: OSTREL"));
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Paths::escape_in_the_ip_settings_makes_the_link() {
    at->expect_network_path(3);
    at->robot.expect(escape_dialog("IP_Settings_Dialog"));
    at->open();
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Paths::a_refused_login_brings_a_new_empty_dialog() {
    at->expect_network_path(2);
    at->robot.expect(log_in("admin", "wrong"));
    expect_warning(at->robot, "Bad credentials");
    at->robot.expect(log_in("nobody", "admin"));
    expect_warning(at->robot, "Bad credentials");
    at->robot.expect({.class_name = "Credentials_Dialog",
                      .action = in_order({check_empty_login(), log_in().action})});
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
}

void Test_Wizard_Paths::a_refused_login_can_be_left_without_a_link() {
    at->expect_network_path(2);
    at->robot.expect(log_in("admin", "wrong"));
    expect_warning(at->robot, "Bad credentials");
    at->robot.expect(close_dialog("Credentials_Dialog"));
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    Network_Fixture::settle();
    QVERIFY(!at->is_connected());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(Network_Fixture::socket_count(), 0);
}

void Test_Wizard_Paths::a_failed_reading_brings_a_new_login() {
    const auto spoil = [](QWidget&) {
        fail_next_search();
        return QString();
    };
    const auto serve_again = [this](QWidget&) {
        fake_waiting::while_blocked([this] { at->network.process_pending(); });
        return QString();
    };
    at->expect_network_path(2);
    at->robot.expect(
        {.class_name = "Credentials_Dialog", .action = in_order({spoil, log_in().action})});
    expect_warning(at->robot, "Search USR error");
    expect_warning(at->robot, "Error in getting data from the USR");
    expect_warning(at->robot, "Get ip allocation error");
    at->robot.expect({.class_name = "Credentials_Dialog",
                      .action = in_order({check_empty_login(), serve_again, log_in().action})});
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
}

void Test_Wizard_Paths::a_list_line_is_the_address_three_blanks_and_the_name_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("a name") << QByteArray("OSTREL");
    QTest::newRow("an empty name") << QByteArray();
    QTest::newRow("markup") << QByteArray("<b>x</b>");
}

void Test_Wizard_Paths::a_list_line_is_the_address_three_blanks_and_the_name() {
    QFETCH(const QByteArray, name);
    Adapter_State state = at->adapter.unit().state();
    state.name = name;
    at->adapter.unit().set_state(state);
    QStringList lines;
    const auto note_lines = [&lines](QWidget& dialog) {
        const auto& list = find_child<QComboBox>(dialog, "comboBox");
        for (int index = 0; index < list.count(); ++index) {
            lines << list.itemText(index);
        }
        return QString();
    };
    at->robot.expect(choose_network());
    at->robot.expect({.class_name = "Select_hardware_Dialog",
                      .action = in_order({note_lines, press_button("Continue")})});
    at->robot.expect(log_in());
    at->robot.expect(connect_adapter());
    at->open();
    QCOMPARE(lines, QStringList("127.0.0.2   " + QString::fromUtf8(name)));
    QCOMPARE(at->label("label_name_of_USR").text(), "  Name: " + QString::fromUtf8(name));
    QCOMPARE(at->label("label_name_of_USR").textFormat(), Qt::PlainText);
}

void Test_Wizard_Paths::the_chosen_adapter_is_the_one_linked() {
    QByteArrayList others;
    Simulated_Adapter& second = at->network.add_adapter();
    connect(&second, &Simulated_Adapter::switch_command_taken, this,
            [&others](const QByteArray& command) { others << command; });
    const auto choose_second = [](QWidget& dialog) {
        find_child<QComboBox>(dialog, "comboBox").setCurrentIndex(1);
        return QString();
    };
    at->robot.expect(choose_network());
    at->robot.expect({.class_name = "Select_hardware_Dialog",
                      .action = in_order({choose_second, press_button("Continue")})});
    at->robot.expect(log_in());
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY(wait_until([&] { return others.size() >= at->start_commands().size(); }));
    QCOMPARE(others, at->start_commands());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.3"));
}

void Test_Wizard_Paths::the_link_goes_to_the_address_found_after_a_change() {
    at->robot.set_patience(std::chrono::seconds(30));
    at->expect_network_path(3);
    at->expect_new_address("127.0.0.9");
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.9"));
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Paths::the_method_dialog_keeps_its_choice() {
    at->robot.expect(
        {.class_name = "Select_connection_method_Dialog",
         .action = in_order({check_chosen("radioButton_TCP_IP"), press_object("radioButton_RS232"),
                             press_button("Continue")})});
    at->open();
    at->robot.expect({.class_name = "Select_connection_method_Dialog",
                      .action = in_order({check_chosen("radioButton_RS232"),
                                          press_object("radioButton_TCP_IP"), close_by_frame()})});
    at->run_wizard();
    // Also a choice that was not confirmed with Continue.
    at->robot.expect({.class_name = "Select_connection_method_Dialog",
                      .action = in_order({check_chosen("radioButton_TCP_IP"), close_by_frame()})});
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
}

void Test_Wizard_Paths::escape_after_a_continue_goes_the_same_path_again() {
    QVERIFY(at->open_serial());
    at->robot.expect(
        {.class_name = "Select_connection_method_Dialog",
         .action = in_order({press_object("radioButton_TCP_IP"), press_key(Qt::Key_Escape)})});
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(!at->is_connected());
    QVERIFY(at->wait_filled());
    QVERIFY(at->device.received_commands().contains("//rl"));
    QVERIFY(at->network.frames().isEmpty());
}

void Test_Wizard_Paths::escape_after_a_close_counts_as_closed() {
    at->robot.expect(close_dialog("Select_connection_method_Dialog"));
    at->open();
    at->robot.expect(escape_dialog("Select_connection_method_Dialog"));
    at->run_wizard();
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
    QVERIFY(!at->is_connected());
}

void Test_Wizard_Paths::a_method_that_is_neither_is_complained_about() {
    const auto uncheck_all = [](QWidget& dialog) {
        for (auto* radio : dialog.findChildren<QRadioButton*>()) {
            radio->setAutoExclusive(false);
            radio->setChecked(false);
        }
        return QString();
    };
    at->robot.expect({.class_name = "Select_connection_method_Dialog",
                      .action = in_order({uncheck_all, press_button("Continue")})});
    expect_warning(at->robot, "Select connection method");
    at->robot.expect(choose_network());
    at->robot.expect(close_dialog("Select_hardware_Dialog"));
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
}

int main(int argc, char** argv) { return run_network_test<Test_Wizard_Paths>(argc, argv); }
#include "test_wizard_paths.moc"

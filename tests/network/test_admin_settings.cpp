// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

/// The adapter's admin settings, opened by the main window's button.
class Test_Admin_Settings : public Network_Test {
    Q_OBJECT

private slots:
    void the_button_is_there_on_the_network_path_only();
    void a_new_name_shows_at_once_and_the_link_stays();
    void blank_fields_keep_everything_data();
    void blank_fields_keep_everything();
    void the_next_opening_works_with_the_new_credentials();
    void the_next_login_of_the_wizard_needs_the_new_credentials();
    void closed_by_its_frame_nothing_is_sent_or_copied();
    void closed_after_a_failed_check_nothing_is_copied();
    void a_failed_change_is_copied_all_the_same();
    void after_a_change_of_address_the_new_one_is_asked();
    void after_a_wizard_left_at_its_last_dialog_what_it_read_is_written_to_the_adapter_in_force();
    void without_an_adapter_the_slot_does_nothing();

private:
    Modal_Expectation apply(const QString& name, const QString& username = {},
                            const QString& password = {}) const {
        return {.class_name = "Change_setting_for_USR_Dialog",
                .action = in_order(
                    {type_into("lineEdit_Name", name), type_into("lineEdit_Username", username),
                     type_into("lineEdit_Password", password), press_object("pushButton_Apply")})};
    }
    /// Changes the settings and waits until the adapter uses them.
    bool change(const QString& name, const QString& username = {}, const QString& password = {}) {
        const QString taken_into_use =
            "127.0.0.2: apply, restarts as " + at->adapter.unit().state().address.toString();
        const auto applied = at->network.notes().count(taken_into_use);
        at->robot.expect(apply(name, username, password));
        expect_information(at->robot, "Settings were applied successfully");
        at->button("pushButton_Admin_Settings").click();
        return wait_until([&] { return at->network.notes().count(taken_into_use) > applied; });
    }
    [[nodiscard]] const Adapter_State& state() const { return at->adapter.unit().state(); }
    [[nodiscard]] QString shown_name() const { return at->label("label_name_of_USR").text(); }
};

void Test_Admin_Settings::the_button_is_there_on_the_network_path_only() {
    const QPushButton* button = nullptr;
    QVERIFY(at->open_serial());
    button = &at->button("pushButton_Admin_Settings");
    QVERIFY(!button->isVisible());
    at->expect_network_path();
    at->run_wizard();
    QVERIFY(button->isVisible());
    QVERIFY(!button->isEnabled());
    QVERIFY(at->wait_connected());
    QVERIFY(button->isEnabled());
    at->robot.expect(choose_serial());
    at->run_wizard();
    QVERIFY(!button->isVisible());
}

void Test_Admin_Settings::a_new_name_shows_at_once_and_the_link_stays() {
    QVERIFY(at->open_network());
    QVERIFY(change("CELLAR"));
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(shown_name(), QString("  Name: CELLAR"));
    QCOMPARE(state().name, QByteArray("CELLAR"));
    QCOMPARE(state().username, QByteArray("admin"));
    QVERIFY(state().dhcp);
    QVERIFY(at->is_connected());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
    QVERIFY(at->change_reaches_adapter());
}

void Test_Admin_Settings::blank_fields_keep_everything_data() {
    QTest::addColumn<bool>("dhcp");
    QTest::newRow("DHCP") << true;
    QTest::newRow("Static") << false;
}

void Test_Admin_Settings::blank_fields_keep_everything() {
    QFETCH(const bool, dhcp);
    Adapter_State before = state();
    before.dhcp = dhcp;
    before.username = "keeper";
    before.password = "secret";
    before.gateway = QHostAddress("127.0.0.77");
    at->adapter.unit().set_state(before);
    at->expect_network_path(2);
    at->robot.expect(log_in("keeper", "secret"));
    at->robot.expect(connect_adapter());
    at->open();
    QVERIFY(at->wait_filled());
    QVERIFY(change({}));
    QCOMPARE(state().name, before.name);
    QCOMPARE(state().username, before.username);
    QCOMPARE(state().password, before.password);
    QCOMPARE(state().dhcp, dhcp);
    QCOMPARE(state().static_ip, before.static_ip);
    QCOMPARE(state().gateway, before.gateway);
    QCOMPARE(state().subnet_mask, before.subnet_mask);
    QCOMPARE(shown_name(), QString("  Name: OSTREL"));
}

void Test_Admin_Settings::the_next_opening_works_with_the_new_credentials() {
    QVERIFY(at->open_network());
    QVERIFY(change({}, "owner", "house"));
    QCOMPARE(state().username, QByteArray("owner"));
    QCOMPARE(state().password, QByteArray("house"));
    QCOMPARE(shown_name(), QString("  Name: OSTREL"));
    // The adapter accepts this only with the new user name and password.
    QVERIFY(change("ATTIC"));
    QCOMPARE(state().name, QByteArray("ATTIC"));
    QCOMPARE(state().username, QByteArray("owner"));
    QCOMPARE(state().password, QByteArray("house"));
    QCOMPARE(shown_name(), QString("  Name: ATTIC"));
}

void Test_Admin_Settings::the_next_login_of_the_wizard_needs_the_new_credentials() {
    QVERIFY(at->open_network());
    QVERIFY(change("ATTIC", "owner", "house"));
    at->expect_network_path(2);
    at->robot.expect(log_in());
    expect_warning(at->robot, "Bad credentials");
    at->robot.expect(log_in("owner", "house"));
    at->robot.expect(connect_adapter());
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
    QCOMPARE(shown_name(), QString("  Name: ATTIC"));
}

void Test_Admin_Settings::closed_by_its_frame_nothing_is_sent_or_copied() {
    QVERIFY(at->open_network());
    const qsizetype frames = at->network.frames().size();
    at->robot.expect(
        {.class_name = "Change_setting_for_USR_Dialog",
         .action = in_order({type_into("lineEdit_Name", "CELLAR"), close_by_frame()})});
    at->button("pushButton_Admin_Settings").click();
    QVERIFY2(at->robot.done(), at->robot.why());
    Network_Fixture::settle();
    QCOMPARE(at->network.frames().size(), frames);
    QCOMPARE(shown_name(), QString("  Name: OSTREL"));
    QVERIFY(at->is_connected());
}

void Test_Admin_Settings::closed_after_a_failed_check_nothing_is_copied() {
    QVERIFY(at->open_network());
    const qsizetype frames = at->network.frames().size();
    const QString too_long(17, 'x');
    at->robot.expect(apply(too_long, too_long));
    expect_warning(at->robot, "Name of USR is too long");
    at->robot.expect(close_dialog("Change_setting_for_USR_Dialog"));
    at->button("pushButton_Admin_Settings").click();
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(at->network.frames().size(), frames);
    QCOMPARE(shown_name(), QString("  Name: OSTREL"));
    QVERIFY(change(QString(16, 'x')));
    QCOMPARE(shown_name(), "  Name: " + QString(16, 'x'));
}

void Test_Admin_Settings::a_failed_change_is_copied_all_the_same() {
    QVERIFY(at->open_network());
    at->robot.expect({.class_name = "Change_setting_for_USR_Dialog",
                      .action = in_order({[](QWidget&) {
                                              fail_next_search();
                                              return QString();
                                          },
                                          apply("CELLAR").action})});
    expect_warning(at->robot, "Search USR error");
    expect_warning(at->robot, "Error in getting data from the USR");
    expect_warning(at->robot, "Error in the setup of USR");
    expect_information(at->robot, "Settings were applied successfully");
    at->button("pushButton_Admin_Settings").click();
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(shown_name(), QString("  Name: CELLAR"));
    QCOMPARE(state().name, QByteArray("OSTREL"));
    QVERIFY(at->is_connected());
}

void Test_Admin_Settings::after_a_change_of_address_the_new_one_is_asked() {
    at->robot.set_patience(std::chrono::seconds(30));
    at->expect_network_path(3);
    at->expect_new_address("127.0.0.9");
    at->open();
    QVERIFY(at->wait_connected());
    QCOMPARE(state().address, QHostAddress("127.0.0.9"));
    at->robot.expect(apply("CELLAR"));
    expect_information(at->robot, "Settings were applied successfully");
    at->button("pushButton_Admin_Settings").click();
    QVERIFY(wait_until([&] { return state().name == "CELLAR"; }));
    QCOMPARE(state().address, QHostAddress("127.0.0.9"));
    QVERIFY(!state().dhcp);
}

void Test_Admin_Settings::
    after_a_wizard_left_at_its_last_dialog_what_it_read_is_written_to_the_adapter_in_force() {
    QVERIFY(at->open_network());
    Simulated_Adapter& second = at->network.add_adapter();
    Adapter_State of_second = second.unit().state();
    of_second.dhcp = false;
    of_second.static_ip = QHostAddress("127.0.0.44");
    second.unit().set_state(of_second);
    at->robot.expect(choose_network());
    at->robot.expect(choose_adapter(1));
    at->robot.expect(log_in());
    at->robot.expect(close_dialog("IP_Settings_Dialog"));
    at->run_wizard();
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));

    at->robot.expect(apply("CELLAR"));
    expect_information(at->robot, "Settings were applied successfully");
    at->button("pushButton_Admin_Settings").click();
    QVERIFY(wait_until([&] { return state().name == "CELLAR"; }));
    QVERIFY(!state().dhcp);
    QCOMPARE(state().static_ip, QHostAddress("127.0.0.44"));
    QCOMPARE(second.unit().state().name, QByteArray("OSTREL"));
}

void Test_Admin_Settings::without_an_adapter_the_slot_does_nothing() {
    QVERIFY(at->open_serial());
    QVERIFY(at->run_slot("on_pushButton_Admin_Settings_clicked"));
    QVERIFY(at->is_connected());
}

int main(int argc, char** argv) { return run_network_test<Test_Admin_Settings>(argc, argv); }
#include "test_admin_settings.moc"

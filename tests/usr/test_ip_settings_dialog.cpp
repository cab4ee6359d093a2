// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/private_network.h"
#include "tests/support/wait_until.h"
#include "tests/usr/ip_dialog_widgets.h"

#include <QTest>

/// The dialog of the IP settings, up to and including an Apply that fails. What follows a
/// successful Apply is in test_ip_change.
class Test_IP_Settings_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_size_title_and_icon();
    void it_reads_the_settings_with_one_login_before_it_shows();
    void the_allocation_decides_what_can_be_typed_data();
    void the_allocation_decides_what_can_be_typed();
    void dhcp_disables_the_fields_and_keeps_their_text();
    void static_enables_the_fields();
    void a_refused_login_leaves_minus_one_in_the_fields();
    void a_silent_adapter_is_asked_by_each_reading_anew();
    void apply_freezes_the_buttons_and_asks_to_wait();
    void a_text_of_wrong_shape_is_not_applied_data();
    void a_text_of_wrong_shape_is_not_applied();
    void a_number_above_255_fails_in_composing_the_frame_data();
    void a_number_above_255_fails_in_composing_the_frame();
    void after_a_failed_apply_the_waiting_box_stays_up();
    void without_an_allocation_nothing_is_applied();
    void connect_ends_the_dialog();
    void the_frames_close_button_sets_the_flag();
    void escape_ends_it_without_the_flag();
    void values_set_from_outside_are_kept();
};

namespace {

const QList<bool> all_enabled(4, true);
const QList<bool> all_disabled(4, false);

/// Reads the adapter at 127.0.0.2, with the allocation that an earlier login has read.
class Shown_IP_Dialog : public IP_Settings_Dialog {
public:
    explicit Shown_IP_Dialog(const QString& allocation)
        : IP_Settings_Dialog(adapter_ip, "admin", "admin", allocation) {}
};

QString run(IP_Settings_Dialog& dialog, const Modal_Action& action) {
    Modal_Robot robot;
    robot.expect({.class_name = ip_settings_class, .action = action});
    dialog.exec();
    return robot.failures().join('\n');
}

void dismiss_waiting_box() {
    if (QMessageBox* box = waiting_box()) {
        box->close();
    }
}

} // namespace

void Test_IP_Settings_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_IP_Settings_Dialog::it_has_its_size_title_and_icon() {
    Fast_Network network;
    network.add_adapter();
    const Shown_IP_Dialog dialog("00");
    QCOMPARE(dialog.minimumSize(), QSize(500, 450));
    QCOMPARE(dialog.maximumSize(), QSize(500, 450));
    QCOMPARE(dialog.windowTitle(), QString("Velmoran Ostrel"));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(Ip_Dialog_Widgets(dialog).label.textFormat(), Qt::PlainText);
}

void Test_IP_Settings_Dialog::it_reads_the_settings_with_one_login_before_it_shows() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    Adapter_State state = adapter.unit().state();
    state.static_ip = QHostAddress("192.168.0.7");
    state.subnet_mask = QHostAddress("255.255.254.0");
    state.gateway = QHostAddress("10.20.30.40");
    adapter.unit().set_state(state);
    const Shown_IP_Dialog dialog("00");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(network.frames_of("03").size(), 1);
    const Ip_Dialog_Widgets widgets(dialog);
    QCOMPARE(widgets.texts(), QStringList({"192.168.0.7", "255.255.254.0", "10.20.30.40"}));
    QCOMPARE(widgets.label.text(), QString(adapter_ip));
    QCOMPARE(dialog.get_static_ip(), QString("192.168.0.7"));
    QCOMPARE(dialog.get_subnet_mask(), QString("255.255.254.0"));
    QCOMPARE(dialog.get_gateway(), QString("10.20.30.40"));
    QCOMPARE(dialog.get_usr_name(), QString("OSTREL"));
    QCOMPARE(dialog.get_current_ip(), QString(adapter_ip));
    QCOMPARE(dialog.get_username(), QString("admin"));
    QCOMPARE(dialog.get_password(), QString("admin"));
    QVERIFY(!dialog.is_closed_by_user());
}

void Test_IP_Settings_Dialog::the_allocation_decides_what_can_be_typed_data() {
    QTest::addColumn<QString>("allocation");
    QTest::addColumn<bool>("is_static");
    QTest::newRow("DHCP") << "00" << false;
    QTest::newRow("Static") << "80" << true;
    QTest::newRow("no login was made") << "" << false;
    QTest::newRow("anything else") << "8" << false;
}

void Test_IP_Settings_Dialog::the_allocation_decides_what_can_be_typed() {
    QFETCH(const QString, allocation);
    QFETCH(const bool, is_static);
    Fast_Network network;
    network.add_adapter();
    const Shown_IP_Dialog dialog(allocation);
    const Ip_Dialog_Widgets widgets(dialog);
    QCOMPARE(widgets.edits_enabled(), QList<bool>(3, is_static));
    QCOMPARE(widgets.fixed.isChecked(), is_static);
    QCOMPARE(widgets.dhcp.isChecked(), !is_static);
    QCOMPARE(widgets.buttons_enabled(), all_enabled);
    QCOMPARE(dialog.get_ip_allocation(), allocation);
}

void Test_IP_Settings_Dialog::dhcp_disables_the_fields_and_keeps_their_text() {
    Fast_Network network;
    network.add_adapter();
    const Shown_IP_Dialog dialog("80");
    const Ip_Dialog_Widgets widgets(dialog);
    widgets.address.setText("1.2.3.4");
    widgets.dhcp.click();
    QCOMPARE(widgets.edits_enabled(), QList<bool>(3, false));
    QCOMPARE(widgets.texts(), QStringList({"1.2.3.4", "255.0.0.0", "127.0.0.1"}));
    QCOMPARE(dialog.get_ip_allocation(), QString("00"));
}

void Test_IP_Settings_Dialog::static_enables_the_fields() {
    Fast_Network network;
    network.add_adapter();
    const Shown_IP_Dialog dialog("00");
    const Ip_Dialog_Widgets widgets(dialog);
    widgets.fixed.click();
    QCOMPARE(widgets.edits_enabled(), QList<bool>(3, true));
    QCOMPARE(dialog.get_ip_allocation(), QString("80"));
    QVERIFY(!widgets.dhcp.isChecked());
}

void Test_IP_Settings_Dialog::a_refused_login_leaves_minus_one_in_the_fields() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    expect_warning(robot, "Bad credentials");
    for (int round = 0; round < 2; ++round) {
        expect_warning(robot, "Get static IP error");
        expect_warning(robot, "Get subnet mask error");
        expect_warning(robot, "Get gateway error");
    }
    const IP_Settings_Dialog dialog(adapter_ip, "admin", "wrong", "00");
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(Ip_Dialog_Widgets(dialog).texts(), QStringList({"-1", "-1", "-1"}));
    QCOMPARE(dialog.get_static_ip(), QString("-1"));
    QCOMPARE(dialog.get_usr_name(), QString("OSTREL"));
    QCOMPARE(network.frames_of("03").size(), 1);
}

void Test_IP_Settings_Dialog::a_silent_adapter_is_asked_by_each_reading_anew() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.unanswered_logins = -1});
    Modal_Robot robot;
    for (int round = 0; round < 2; ++round) {
        expect_warning(robot, "Get static IP error");
        expect_warning(robot, "Get subnet mask error");
        expect_warning(robot, "Get gateway error");
    }
    const Shown_IP_Dialog dialog("80");
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(Ip_Dialog_Widgets(dialog).texts(), QStringList({"-1", "-1", "-1"}));
    QCOMPARE(network.frames_of("03").size(), 6 * 100);
}

void Test_IP_Settings_Dialog::apply_freezes_the_buttons_and_asks_to_wait() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("80");
    dialog.show();
    const Ip_Dialog_Widgets widgets(dialog);
    const qsizetype frames_before = network.frames().size();
    widgets.apply.click();
    QCOMPARE(widgets.buttons_enabled(), all_disabled);
    const QMessageBox* box = waiting_box();
    QVERIFY(box != nullptr);
    QCOMPARE(box->windowTitle(), QString("Information"));
    QCOMPARE(box->icon(), QMessageBox::Information);
    QCOMPARE(box->windowModality(), Qt::NonModal);
    QVERIFY(box->parent() == nullptr);
    // Nothing is sent before the box has had time to be painted.
    QCOMPARE(network.frames().size(), frames_before);
    QVERIFY(wait_until([&] { return network.frames().size() > frames_before; }));
    dismiss_waiting_box();
}

void Test_IP_Settings_Dialog::a_text_of_wrong_shape_is_not_applied_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    const QString good = "10.0.0.7";
    QTest::newRow("address of three numbers") << "10.0.7" << good << good;
    QTest::newRow("address of five numbers") << "10.0.0.7.1" << good << good;
    QTest::newRow("empty address") << "" << good << good;
    QTest::newRow("four digits") << "10.0.0.1000" << good << good;
    QTest::newRow("blank before") << " 10.0.0.7" << good << good;
    QTest::newRow("letters") << "10.0.0.x" << good << good;
    QTest::newRow("failed reading") << "-1" << good << good;
    QTest::newRow("mask of three numbers") << good << "255.255.0" << good;
    QTest::newRow("gateway of three numbers") << good << good << "10.0.1";
    QTest::newRow("very long text") << QString(32767, '1') << good << good;
}

void Test_IP_Settings_Dialog::a_text_of_wrong_shape_is_not_applied() {
    QFETCH(const QString, address);
    QFETCH(const QString, mask);
    QFETCH(const QString, gateway);
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("80");
    dialog.show();
    const Ip_Dialog_Widgets widgets(dialog);
    widgets.address.setText(address);
    widgets.mask.setText(mask);
    widgets.gateway.setText(gateway);
    const qsizetype frames_before = network.frames().size();
    Modal_Robot robot;
    expect_warning(robot, "Error in applying IP");
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(widgets.buttons_enabled(), all_enabled);
    QCOMPARE(widgets.edits_enabled(), QList<bool>(3, true));
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames().size(), frames_before);
    dismiss_waiting_box();
}

void Test_IP_Settings_Dialog::a_number_above_255_fails_in_composing_the_frame_data() {
    QTest::addColumn<QString>("address");
    QTest::newRow("last number") << "10.0.0.256";
    QTest::newRow("first number") << "999.1.1.1";
}

void Test_IP_Settings_Dialog::a_number_above_255_fails_in_composing_the_frame() {
    QFETCH(const QString, address);
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("80");
    dialog.show();
    const Ip_Dialog_Widgets widgets(dialog);
    widgets.address.setText(address);
    Modal_Robot robot;
    expect_warning(robot, "Error in the setup of USR");
    expect_warning(robot, "Error in applying IP");
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(widgets.buttons_enabled(), all_enabled);
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames_of("05"), QByteArrayList());
    dismiss_waiting_box();
}

void Test_IP_Settings_Dialog::after_a_failed_apply_the_waiting_box_stays_up() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("80");
    dialog.show();
    const Ip_Dialog_Widgets widgets(dialog);
    widgets.address.setText("10.0.7");
    Modal_Robot robot;
    expect_warning(robot, "Error in applying IP");
    expect_warning(robot, "Error in applying IP");
    for (int round = 0; round < 2; ++round) {
        widgets.apply.click();
        QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }), robot.why());
        QVERIFY(waiting_box() != nullptr);
    }
    QVERIFY2(robot.done(), robot.why());
    dismiss_waiting_box();
    QVERIFY(waiting_box() == nullptr);
}

void Test_IP_Settings_Dialog::without_an_allocation_nothing_is_applied() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("80");
    dialog.show();
    const Ip_Dialog_Widgets widgets(dialog);
    // The form alone never reaches this state.
    for (QRadioButton* button : {&widgets.dhcp, &widgets.fixed}) {
        button->setAutoExclusive(false);
        button->setChecked(false);
    }
    Modal_Robot robot;
    expect_warning(robot, "Select IP allocation");
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return robot.done(); }), robot.why());
    QVERIFY(wait_until([] { return QApplication::activeModalWidget() == nullptr; }));
    QCOMPARE(widgets.buttons_enabled(), all_disabled);
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames_of("05"), QByteArrayList());
    dismiss_waiting_box();
}

void Test_IP_Settings_Dialog::connect_ends_the_dialog() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("00");
    QCOMPARE(run(dialog, press_object("pushButton_Connect")), QString());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_current_ip(), QString(adapter_ip));
}

void Test_IP_Settings_Dialog::the_frames_close_button_sets_the_flag() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("00");
    QCOMPARE(run(dialog, close_by_frame()), QString());
    QVERIFY(dialog.is_closed_by_user());
}

void Test_IP_Settings_Dialog::escape_ends_it_without_the_flag() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("00");
    QCOMPARE(run(dialog, press_key(Qt::Key_Escape)), QString());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
}

void Test_IP_Settings_Dialog::values_set_from_outside_are_kept() {
    Fast_Network network;
    network.add_adapter();
    Shown_IP_Dialog dialog("00");
    dialog.set_username("keller");
    dialog.set_password("geheim");
    dialog.set_usr_name("WEST WING");
    QCOMPARE(dialog.get_username(), QString("keller"));
    QCOMPARE(dialog.get_password(), QString("geheim"));
    QCOMPARE(dialog.get_usr_name(), QString("WEST WING"));
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_IP_Settings_Dialog test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_ip_settings_dialog.moc"

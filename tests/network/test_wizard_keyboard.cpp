// SPDX-License-Identifier: MIT

#include "tests/support/assistance_snapshot.h"
#include "tests/support/find_child.h"
#include "tests/support/network_test.h"

#include <QRadioButton>

/// The connection wizard by keyboard alone, with an adapter that answers.
class Test_Wizard_Keyboard : public Network_Test {
    Q_OBJECT

private slots:
    void enter_and_typing_lead_from_the_start_to_a_green_window();
    void the_hardware_dialog_begins_at_its_list();
    void the_ip_settings_begin_at_what_can_be_changed_data();
    void the_ip_settings_begin_at_what_can_be_changed();

private:
    void expect_dialogs_up_to_the_ip_settings();
};

namespace {

/// Types into what has the focus.
Modal_Action type(const QString& text) {
    return [text](QWidget& dialog) {
        QTest::keyClicks(dialog.focusWidget(), text);
        return QString();
    };
}

/// Presses a key in what has the focus.
Modal_Action key(Qt::Key which) {
    return [which](QWidget& dialog) {
        QTest::keyClick(dialog.focusWidget(), which);
        return QString();
    };
}

} // namespace

void Test_Wizard_Keyboard::expect_dialogs_up_to_the_ip_settings() {
    at->robot.expect(
        {.class_name = "Select_connection_method_Dialog", .action = key(Qt::Key_Return)});
    at->robot.expect({.class_name = "Select_hardware_Dialog", .action = key(Qt::Key_Return)});
    at->robot.expect({.class_name = "Credentials_Dialog",
                      .action = in_order(
                          {type("admin"), key(Qt::Key_Tab), type("admin"), key(Qt::Key_Return)})});
}

void Test_Wizard_Keyboard::enter_and_typing_lead_from_the_start_to_a_green_window() {
    expect_dialogs_up_to_the_ip_settings();
    at->robot.expect({.class_name = "IP_Settings_Dialog", .action = key(Qt::Key_Return)});
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
    // Four searches: for the list, for the login, and for reading the settings. No frame changed a
    // setting.
    QCOMPARE(at->network.frames_of("05"), QByteArrayList());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
}

void Test_Wizard_Keyboard::the_hardware_dialog_begins_at_its_list() {
    QStringList walk;
    QStringList names;
    at->robot.expect(choose_network());
    at->robot.expect({.class_name = "Select_hardware_Dialog", .action = [&](QWidget& dialog) {
                          walk = tab_walk(dialog);
                          names = accessible_names(dialog);
                          return close_by_frame()(dialog);
                      }});
    at->open();
    QCOMPARE(walk, (QStringList{"comboBox", "pushButton_Refresh", "pushButton_Continue"}));
    QCOMPARE(names, (QStringList{"comboBox: Discovery of Hardware (Select One)",
                                 "pushButton_Continue: Continue", "pushButton_Refresh: Refresh"}));
}

void Test_Wizard_Keyboard::the_ip_settings_begin_at_what_can_be_changed_data() {
    QTest::addColumn<bool>("is_static");
    QTest::newRow("DHCP") << false;
    QTest::newRow("Static") << true;
}

void Test_Wizard_Keyboard::the_ip_settings_begin_at_what_can_be_changed() {
    QFETCH(const bool, is_static);
    QStringList walk;
    QStringList names;
    QString first;
    Adapter_State state = at->adapter.unit().state();
    state.dhcp = !is_static;
    at->adapter.unit().set_state(state);
    expect_dialogs_up_to_the_ip_settings();
    at->robot.expect({.class_name = "IP_Settings_Dialog", .action = [&](QWidget& dialog) {
                          first = dialog.focusWidget()->objectName();
                          const QString other =
                              is_static ? "radioButton_Static" : "radioButton_DHCP";
                          find_child<QRadioButton>(dialog, other).click();
                          find_child<QRadioButton>(dialog, other).setFocus();
                          walk = tab_walk(dialog);
                          names = accessible_names(dialog);
                          return close_by_frame()(dialog);
                      }});
    at->open();
    const QStringList buttons{"pushButton_Apply_IP", "pushButton_Connect"};
    const QStringList fields{"lineEdit_IPv4_Address", "lineEdit_Subnet_Mask",
                             "lineEdit_Default_Gateway"};
    QCOMPARE(first, is_static ? "lineEdit_IPv4_Address" : "radioButton_DHCP");
    QCOMPARE(walk, is_static ? QStringList("radioButton_Static") + fields + buttons
                             : QStringList("radioButton_DHCP") + buttons);
    QCOMPARE(names,
             (QStringList{"lineEdit_Default_Gateway: Default Gateway",
                          "lineEdit_IPv4_Address: IPv4 Address",
                          "lineEdit_Subnet_Mask: Subnet Mask", "pushButton_Apply_IP: Apply IP",
                          "pushButton_Connect: Connect", "radioButton_DHCP: IP Allocation: DHCP",
                          "radioButton_Static: IP Allocation: Static"}));
}

int main(int argc, char** argv) { return run_network_test<Test_Wizard_Keyboard>(argc, argv); }

#include "test_wizard_keyboard.moc"

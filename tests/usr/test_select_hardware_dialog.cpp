// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/find_child.h"
#include "tests/support/private_network.h"
#include "tests/support/raw_sender.h"
#include "tests/usr/port_taker.h"
#include "usr/select_hardware_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

/// The dialog that lists the adapters. The ends of the process are tested from outside, in
/// test_no_hardware_online.
class Test_Select_Hardware_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_size_title_and_icon();
    void one_adapter_is_one_line_of_address_and_name();
    void the_search_is_over_before_the_dialog_shows();
    void names_are_shown_as_their_characters_data();
    void names_are_shown_as_their_characters();
    void several_adapters_are_listed_in_the_order_of_arrival();
    void the_selection_follows_the_box();
    void equal_lines_are_shown_once_and_the_last_one_stays();
    void behind_a_removed_line_the_address_is_that_of_another_line();
    void adapters_that_share_a_name_keep_their_lines();
    void refresh_searches_anew();
    void the_buttons_are_disabled_during_a_refresh();
    void refresh_clears_an_earlier_close();
    void continue_ends_the_dialog();
    void the_frames_close_button_sets_the_flag();
    void escape_ends_it_with_what_it_has();
    void a_search_that_left_no_reply_gives_an_empty_box();
    void addresses_without_replies_give_an_empty_box();
};

namespace {

constexpr const char* select_hardware_class = "Select_hardware_Dialog";

QComboBox& box_of(const Select_hardware_Dialog& dialog) {
    return find_child<QComboBox>(dialog, "comboBox");
}

QStringList lines_of(const Select_hardware_Dialog& dialog) {
    QStringList lines;
    for (int i = 0; i < box_of(dialog).count(); ++i) {
        lines << box_of(dialog).itemText(i);
    }
    return lines;
}

QPushButton& button_of(const Select_hardware_Dialog& dialog, const char* name) {
    return find_child<QPushButton>(dialog, name);
}

QString run(Select_hardware_Dialog& dialog, const Modal_Action& action) {
    Modal_Robot robot;
    robot.expect({.class_name = select_hardware_class, .action = action});
    dialog.exec();
    return robot.failures().join('\n');
}

/// Sends these adapters' replies in this order, in one search.
void answer_with(const QList<Adapter_State>& states) {
    fake_waiting::while_blocked([states] {
        for (const Adapter_State& state : states) {
            QUdpSocket adapter;
            adapter.bind(state.address, 0);
            adapter.writeDatagram(Adapter_Logic(state).search_reply(), QHostAddress::LocalHost,
                                  search_port);
        }
    });
}

Adapter_State named(int number, const QByteArray& name) {
    Adapter_State state = Adapter_Network::numbered({}, number);
    state.name = name;
    return state;
}

} // namespace

void Test_Select_Hardware_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Select_Hardware_Dialog::it_has_its_size_title_and_icon() {
    Fast_Network network;
    network.add_adapter();
    const Select_hardware_Dialog dialog;
    QCOMPARE(dialog.minimumSize(), QSize(405, 341));
    QCOMPARE(dialog.maximumSize(), QSize(405, 341));
    QCOMPARE(dialog.windowTitle(), QString("Velmoran Ostrel"));
    QVERIFY(!dialog.windowIcon().isNull());
}

void Test_Select_Hardware_Dialog::one_adapter_is_one_line_of_address_and_name() {
    Fast_Network network;
    network.add_adapter();
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList("127.0.0.2   OSTREL"));
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.2"));
    QVERIFY(box_of(dialog).itemIcon(0).isNull());
    QVERIFY(!box_of(dialog).itemData(0).isValid());
}

void Test_Select_Hardware_Dialog::the_search_is_over_before_the_dialog_shows() {
    Fast_Network network;
    network.add_adapter();
    const Select_hardware_Dialog dialog;
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(network.frames_of("01").size(), 1);
    QVERIFY(button_of(dialog, "pushButton_Refresh").isEnabled());
    QVERIFY(button_of(dialog, "pushButton_Continue").isEnabled());
}

void Test_Select_Hardware_Dialog::names_are_shown_as_their_characters_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("sixteen bytes without a zero byte")
        << QByteArray("SIXTEEN LETTERS!") << "SIXTEEN LETTERS!";
    QTest::newRow("UTF-8") << QByteArray("Büro €") << QString::fromUtf8("Büro €");
    QTest::newRow("no UTF-8") << QByteArray("A\xff\xfe")
                              << QString("A") + QChar(0xfffd) + QChar(0xfffd);
    QTest::newRow("markup") << QByteArray("<h1>BIG</h1>") << "<h1>BIG</h1>";
    QTest::newRow("format characters") << QByteArray("%1 %n %s &&") << "%1 %n %s &&";
    QTest::newRow("line feed and tab") << QByteArray("A\nB\tC") << "A\nB\tC";
}

void Test_Select_Hardware_Dialog::names_are_shown_as_their_characters() {
    QFETCH(const QByteArray, name);
    QFETCH(const QString, shown);
    const Fast_Network network;
    answer_with({named(0, name)});
    Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList("127.0.0.2   " + shown));
    dialog.show();
    QVERIFY(!dialog.grab().isNull());
}

void Test_Select_Hardware_Dialog::several_adapters_are_listed_in_the_order_of_arrival() {
    const Fast_Network network;
    answer_with({named(5, "FIVE"), named(1, "ONE"), named(3, "THREE")});
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog),
             QStringList({"127.0.0.7   FIVE", "127.0.0.3   ONE", "127.0.0.5   THREE"}));
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.7"));
}

void Test_Select_Hardware_Dialog::the_selection_follows_the_box() {
    const Fast_Network network;
    answer_with({named(0, "A"), named(1, "B"), named(2, "C")});
    const Select_hardware_Dialog dialog;
    box_of(dialog).setCurrentIndex(2);
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.4"));
    box_of(dialog).setCurrentIndex(1);
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.3"));
}

void Test_Select_Hardware_Dialog::equal_lines_are_shown_once_and_the_last_one_stays() {
    const Fast_Network network;
    const Adapter_State a = named(0, "A");
    const Adapter_State b = named(1, "B");
    answer_with({a, b, a});
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList({"127.0.0.3   B", "127.0.0.2   A"}));
    QCOMPARE(dialog.get_USR_replies().size(), 3);
    QCOMPARE(dialog.get_USR_addresses().size(), 3);
}

void Test_Select_Hardware_Dialog::behind_a_removed_line_the_address_is_that_of_another_line() {
    const Fast_Network network;
    const Adapter_State a = named(0, "A");
    answer_with({a, a, named(1, "B")});
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList({"127.0.0.2   A", "127.0.0.3   B"}));
    box_of(dialog).setCurrentIndex(1);
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.2"));
}

void Test_Select_Hardware_Dialog::adapters_that_share_a_name_keep_their_lines() {
    const Fast_Network network;
    answer_with({named(0, "TWIN"), named(1, "TWIN")});
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList({"127.0.0.2   TWIN", "127.0.0.3   TWIN"}));
}

void Test_Select_Hardware_Dialog::refresh_searches_anew() {
    const Fast_Network network;
    answer_with({named(0, "OLD")});
    const Select_hardware_Dialog dialog;
    answer_with({named(7, "NEW"), named(8, "NEWER")});
    button_of(dialog, "pushButton_Refresh").click();
    QCOMPARE(lines_of(dialog), QStringList({"127.0.0.9   NEW", "127.0.0.10   NEWER"}));
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.9"));
    QVERIFY(button_of(dialog, "pushButton_Refresh").isEnabled());
    QVERIFY(button_of(dialog, "pushButton_Continue").isEnabled());
}

void Test_Select_Hardware_Dialog::the_buttons_are_disabled_during_a_refresh() {
    Fast_Network network;
    network.add_adapter();
    const Select_hardware_Dialog dialog;
    QList<bool> enabled_meanwhile;
    fake_waiting::while_blocked([&] {
        network.process_pending();
        enabled_meanwhile << button_of(dialog, "pushButton_Refresh").isEnabled()
                          << button_of(dialog, "pushButton_Continue").isEnabled();
    });
    button_of(dialog, "pushButton_Refresh").click();
    QCOMPARE(enabled_meanwhile, QList<bool>({false, false}));
}

void Test_Select_Hardware_Dialog::refresh_clears_an_earlier_close() {
    Fast_Network network;
    network.add_adapter();
    Select_hardware_Dialog dialog;
    run(dialog, close_by_frame());
    QVERIFY(dialog.is_closed_by_user());
    button_of(dialog, "pushButton_Refresh").click();
    QVERIFY(!dialog.is_closed_by_user());
}

void Test_Select_Hardware_Dialog::continue_ends_the_dialog() {
    Fast_Network network;
    network.add_adapter();
    Select_hardware_Dialog dialog;
    QCOMPARE(run(dialog, press_object("pushButton_Continue")), QString());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.2"));
}

void Test_Select_Hardware_Dialog::the_frames_close_button_sets_the_flag() {
    Fast_Network network;
    network.add_adapter();
    Select_hardware_Dialog dialog;
    QCOMPARE(run(dialog, close_by_frame()), QString());
    QVERIFY(dialog.is_closed_by_user());
}

void Test_Select_Hardware_Dialog::escape_ends_it_with_what_it_has() {
    Fast_Network network;
    network.add_adapter();
    Select_hardware_Dialog dialog;
    QCOMPARE(run(dialog, press_key(Qt::Key_Escape)), QString());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_selected_ip(), QString("127.0.0.2"));
}

void Test_Select_Hardware_Dialog::a_search_that_left_no_reply_gives_an_empty_box() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.search_reply_bytes = 20});
    connect(&adapter, &Simulated_Adapter::frame_taken, this,
            [&] { adapter.unit().set_faults({.silent_to_search = true}); });
    const Select_hardware_Dialog dialog;
    QCOMPARE(lines_of(dialog), QStringList());
    QCOMPARE(dialog.get_selected_ip(), QString());
    box_of(dialog).setCurrentIndex(0);
    QCOMPARE(dialog.get_selected_ip(), QString());
}

void Test_Select_Hardware_Dialog::addresses_without_replies_give_an_empty_box() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.search_reply_bytes = 20});
    const Port_Taker other_program;
    const Select_hardware_Dialog dialog;
    QVERIFY(other_program.has_port());
    QCOMPARE(dialog.get_USR_addresses().size(), 1);
    QCOMPARE(lines_of(dialog), QStringList());
    QCOMPARE(dialog.get_selected_ip(), QString());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Select_Hardware_Dialog test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_select_hardware_dialog.moc"

// SPDX-License-Identifier: MIT

#include "tests/support/device_watch.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/windows/link_snapshot.h"

#include <QTest>

/// What the Lite shows of its link in each state, and which texts connect it. The switch is silent:
/// the tests send its lines.
class Test_Serial_Link_States : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opened_and_not_answered_shows_red_with_on_and_dead_controls();
    void connected_shows_green_with_off_and_live_controls();
    void closed_shows_red_with_on_and_dead_controls();
    void connecting_enables_exactly_the_listed_controls();
    void going_off_disables_exactly_the_listed_controls();
    void without_a_switch_only_on_the_port_list_and_the_first_page_are_live();
    void either_marker_alone_connects();
    void other_words_do_not_connect();
    void a_marker_in_two_chunks_is_not_seen();
    void km_in_ordinary_text_connects();
    void off_leaves_the_port_list_usable();
    void a_switch_that_never_answers_leaves_the_window_open_without_a_word();

private:
    QPushButton& off() const { return lite->button("pushButton_OFF_Connection"); }
    QComboBox& port_list() const { return lite->combo("comboBox_SelectPort"); }
    QStringList live_widgets() const;

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

QStringList sorted(QStringList names) {
    names.sort();
    return names;
}

/// The names in one list and not in the other.
QStringList without(const QStringList& names, const QStringList& others) {
    QStringList rest;
    for (const QString& name : names) {
        if (!others.contains(name)) {
            rest.append(name);
        }
    }
    return sorted(rest);
}

} // namespace

void Test_Serial_Link_States::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    be_silent(lite->device);
}

void Test_Serial_Link_States::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

/// Every named widget of the window that is enabled, visible or not.
QStringList Test_Serial_Link_States::live_widgets() const {
    QStringList names;
    for (const QWidget* widget : lite->window().findChildren<QWidget*>()) {
        if (widget->isEnabled() && !widget->objectName().isEmpty()) {
            names.append(widget->objectName());
        }
    }
    return names;
}

void Test_Serial_Link_States::opened_and_not_answered_shows_red_with_on_and_dead_controls() {
    const Device_Watch watch(lite->device.device_name());
    lite->open();
    QCOMPARE(lite->commands(), question_list);
    QCOMPARE(watch.events().last(), "open");
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
}

void Test_Serial_Link_States::connected_shows_green_with_off_and_live_controls() {
    lite->open();
    QVERIFY(lite->say("//RL\n"));
    QCOMPARE(shown_link_state(*lite), shows_connected);
}

void Test_Serial_Link_States::closed_shows_red_with_on_and_dead_controls() {
    lite->open();
    QVERIFY(lite->say("//RL\n"));
    const Device_Watch watch(lite->device.device_name());
    off().click();
    QCOMPARE(watch.events(), QStringList{"close"});
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
}

void Test_Serial_Link_States::connecting_enables_exactly_the_listed_controls() {
    lite->open();
    const QStringList before = live_widgets();
    QVERIFY(lite->say("//RL\n"));
    const QStringList after = live_widgets();
    QCOMPARE(without(after, before),
             sorted(link_controls() + QStringList{"pushButton_OFF_Connection"}));
    QCOMPARE(without(before, after), QStringList{"pushButton_ON_Connection"});
}

void Test_Serial_Link_States::going_off_disables_exactly_the_listed_controls() {
    lite->open();
    QVERIFY(lite->say("//RL\n"));
    const QStringList before = live_widgets();
    off().click();
    const QStringList after = live_widgets();
    QCOMPARE(without(before, after),
             sorted(link_controls() + QStringList{"pushButton_OFF_Connection"}));
    QCOMPARE(without(after, before), QStringList{"pushButton_ON_Connection"});
}

void Test_Serial_Link_States::without_a_switch_only_on_the_port_list_and_the_first_page_are_live() {
    lite->open();
    QStringList live;
    for (const QWidget* widget : lite->window().findChildren<QWidget*>()) {
        const bool is_control = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                qobject_cast<const QComboBox*>(widget) != nullptr;
        if (is_control && widget->isVisible() && widget->isEnabled()) {
            live.append(widget->objectName());
        }
    }
    // The indicator is a button without a slot.
    QCOMPARE(sorted(live), sorted({"ConfigurationBtn", "comboBox_SelectPort",
                                   "pushButton_Connection_Indicator", "pushButton_ON_Connection"}));
    QVERIFY(lite->line_edit("lineEdit_MouseParking_x").isEnabled());
    QVERIFY(lite->line_edit("lineEdit_MouseParking_y").isEnabled());
}

void Test_Serial_Link_States::either_marker_alone_connects() {
    for (const char* marker : {"//RL", "KM"}) {
        lite = std::make_unique<Lite_Fixture>();
        be_silent(lite->device);
        lite->open();
        QVERIFY(lite->say(marker));
        QCOMPARE(shown_link_state(*lite), shows_connected);
        lite.reset();
    }
}

void Test_Serial_Link_States::other_words_do_not_connect() {
    lite->open();
    QVERIFY(lite->say("//rl //km //RK K M Current USB Control 2\n**U 3\n"));
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
}

void Test_Serial_Link_States::a_marker_in_two_chunks_is_not_seen() {
    lite->open();
    for (const char* piece : {"//R", "L and K", "M"}) {
        QVERIFY(lite->say(piece));
        QCOMPARE(shown_link_state(*lite), shows_disconnected);
    }
}

void Test_Serial_Link_States::km_in_ordinary_text_connects() {
    lite->open();
    QVERIFY(lite->say("good morning from the BACKMOST shelf\n"));
    QCOMPARE(shown_link_state(*lite), shows_connected);
}

void Test_Serial_Link_States::off_leaves_the_port_list_usable() {
    lite->open();
    QVERIFY(lite->say("//RL\n"));
    off().click();
    QVERIFY(port_list().isEnabled());
    QCOMPARE(port_list().currentText(), lite->device.port_name());
}

void Test_Serial_Link_States::a_switch_that_never_answers_leaves_the_window_open_without_a_word() {
    lite->open();
    QCOMPARE(lite->commands(), question_list);
    // Longer than any wait of the link.
    QTest::qWait(1500);
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(lite->commands(), QByteArrayList());
}

QTEST_MAIN(Test_Serial_Link_States)

#include "test_serial_link_states.moc"

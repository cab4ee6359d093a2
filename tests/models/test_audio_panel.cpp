// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"
#include "tests/support/wizard_fixture.h"
#include "windows/halvern_velmoran_pro.h"

#include <QCheckBox>
#include <QTest>

#include <memory>

/// The audio panel in the Pro window, on a serial line.
class Test_Audio_Panel : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void boxes_start_unchecked_and_usable_without_a_connection();
    void the_first_report_shows_the_units_routing();
    void nothing_checked_sends_no_channel();
    void checked_channels_are_sent_in_order();
    void clicks_alone_send_nothing();
    void all_clears_the_channels_and_follow();
    void follow_clears_the_channels_and_all();
    void a_channel_clears_all_and_follow();
    void clearing_a_channel_clears_all_and_follow_too();
    void clearing_all_leaves_nothing_checked();
    void clearing_follow_leaves_nothing_checked();
    void submitted_routing_reaches_the_unit();
    void a_reply_is_shown_data();
    void a_reply_is_shown();
    void a_chunk_without_a_mark_leaves_the_boxes();
    void an_unknown_state_clears_the_boxes();
    void a_reply_sends_nothing_back();
    void a_notice_for_both_moves_the_audio_too();
    void the_unconnected_slot_asks_for_the_audio_state();
    void submit_is_disabled_without_a_switch();

private:
    QCheckBox& box(const QString& name) const { return find_child<QCheckBox>(pro->window(), name); }
    /// The checked boxes: "ALL", "FOLLOW" and channel digits, in this order.
    QString checked() const;
    void click(const QString& name) const { box(name).click(); }
    void submit() const { pro->button("pushButton_AudioSubmit").click(); }
    void clear_panel() const;

    Modal_Robot robot;
    std::unique_ptr<Wizard_Fixture<Halvern_Velmoran_PRO>> pro;
};

void Test_Audio_Panel::init() {
    pro = std::make_unique<Wizard_Fixture<Halvern_Velmoran_PRO>>(Switch_Model::pro, robot);
}

void Test_Audio_Panel::cleanup() {
    pro.reset();
    QVERIFY2(robot.done(), robot.why());
}

QString Test_Audio_Panel::checked() const {
    QString all;
    for (const char* name : {"checkBox_ALL", "checkBox_FOLLOW", "checkBox_ch1", "checkBox_ch2",
                             "checkBox_ch3", "checkBox_ch4"}) {
        if (box(name).isChecked()) {
            all += box(name).text();
        }
    }
    return all;
}

void Test_Audio_Panel::clear_panel() const {
    for (QCheckBox* each : pro->window().findChildren<QCheckBox*>()) {
        each->setChecked(false);
    }
}

void Test_Audio_Panel::boxes_start_unchecked_and_usable_without_a_connection() {
    Fault_Plan silence;
    silence.silence = true;
    pro->device.set_faults(silence);
    pro->open();

    QCOMPARE(checked(), QString());
    QCOMPARE(pro->window().findChildren<QCheckBox*>().size(), 6);
    for (const QCheckBox* each : pro->window().findChildren<QCheckBox*>()) {
        QVERIFY2(each->isEnabled(), qPrintable(each->objectName()));
    }
}

void Test_Audio_Panel::the_first_report_shows_the_units_routing() {
    Switch_State state;
    state.audio = {Audio_Routing::Mode::channels, {true, false, true, false}};
    pro->device.unit().set_state(state);
    QVERIFY(pro->open_filled());
    QVERIFY(wait_until([&] { return checked() == "13"; }));
}

void Test_Audio_Panel::nothing_checked_sends_no_channel() {
    QVERIFY(pro->open_filled());
    clear_panel();
    submit();
    QCOMPARE(pro->commands(), QByteArrayList{"//a x"});
}

void Test_Audio_Panel::checked_channels_are_sent_in_order() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_ch4");
    click("checkBox_ch2");
    submit();
    QCOMPARE(pro->commands(), QByteArrayList{"//a 2 4"});
}

void Test_Audio_Panel::clicks_alone_send_nothing() {
    QVERIFY(pro->open_filled());
    for (const char* name : {"checkBox_ALL", "checkBox_FOLLOW", "checkBox_ch1", "checkBox_ch2",
                             "checkBox_ch3", "checkBox_ch4"}) {
        click(name);
    }
    QCOMPARE(pro->commands(), QByteArrayList{});
}

void Test_Audio_Panel::all_clears_the_channels_and_follow() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_ch1");
    click("checkBox_ch3");
    click("checkBox_ALL");
    QCOMPARE(checked(), "ALL");
    click("checkBox_FOLLOW");
    click("checkBox_ALL");
    QCOMPARE(checked(), "ALL");
    submit();
    QCOMPARE(pro->commands(), QByteArrayList{"//a 0"});
}

void Test_Audio_Panel::follow_clears_the_channels_and_all() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_ch2");
    click("checkBox_FOLLOW");
    QCOMPARE(checked(), "FOLLOW");
    click("checkBox_ALL");
    click("checkBox_FOLLOW");
    QCOMPARE(checked(), "FOLLOW");
    submit();
    QCOMPARE(pro->commands(), QByteArrayList{"//a f"});
}

void Test_Audio_Panel::a_channel_clears_all_and_follow() {
    QVERIFY(pro->open_filled());
    for (const char* mode : {"checkBox_ALL", "checkBox_FOLLOW"}) {
        for (const char* channel : {"1", "2", "3", "4"}) {
            clear_panel();
            click(mode);
            click(QString("checkBox_ch") + channel);
            QCOMPARE(checked(), QString(channel));
        }
    }
}

void Test_Audio_Panel::clearing_a_channel_clears_all_and_follow_too() {
    QVERIFY(pro->open_filled());
    clear_panel();
    box("checkBox_ch1").setChecked(true);
    box("checkBox_ALL").setChecked(true);
    box("checkBox_FOLLOW").setChecked(true);
    click("checkBox_ch1");
    QCOMPARE(checked(), QString());
}

void Test_Audio_Panel::clearing_all_leaves_nothing_checked() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_ALL");
    click("checkBox_ALL");
    QCOMPARE(checked(), QString());
}

void Test_Audio_Panel::clearing_follow_leaves_nothing_checked() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_FOLLOW");
    click("checkBox_FOLLOW");
    QCOMPARE(checked(), QString());
    QVERIFY(box("checkBox_ch1").isEnabled());
}

void Test_Audio_Panel::submitted_routing_reaches_the_unit() {
    QVERIFY(pro->open_filled());
    clear_panel();
    click("checkBox_ch3");
    submit();
    QCOMPARE(pro->commands(), QByteArrayList{"//a 3"});
    const Audio_Routing& routing = pro->device.unit().state().audio;
    QVERIFY(routing.mode == Audio_Routing::Mode::channels);
    const std::array<bool, 4> third_only{false, false, true, false};
    QVERIFY(routing.channels == third_only);
}

void Test_Audio_Panel::a_reply_is_shown_data() {
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("shown");
    QTest::newRow("zero is all") << QByteArray("**A 0\n") << "ALL";
    QTest::newRow("channels") << QByteArray("**A 1 3\n") << "13";
    QTest::newRow("follow") << QByteArray("**A F\n") << "FOLLOW";
    QTest::newRow("without a blank behind the mark") << QByteArray("**A24\n") << "24";
    QTest::newRow("the command's form") << QByteArray("//A 4\n") << "4";
    QTest::newRow("1F alone is follow") << QByteArray("**A 1F") << "FOLLOW";
    QTest::newRow("13F ends in follow") << QByteArray("**A 13F") << "FOLLOW";
    QTest::newRow("inside longer text") << QByteArray("Routing now **A 2, as asked\n") << "2";
    QTest::newRow("later lines count") << QByteArray("**A 1\nline 4\n") << "14";
    QTest::newRow("the first mark wins") << QByteArray("**A 3\n//A x\n") << "3";
}

void Test_Audio_Panel::a_reply_is_shown() {
    QFETCH(const QByteArray, reply);
    QFETCH(const QString, shown);
    QVERIFY(pro->open_filled());
    // A notice empties the buffer, so that only the reply is searched.
    QVERIFY(pro->say("**U 1\n"));
    clear_panel();
    QVERIFY(pro->say(reply));
    QCOMPARE(checked(), shown);
}

void Test_Audio_Panel::a_chunk_without_a_mark_leaves_the_boxes() {
    QVERIFY(pro->open_filled());
    QVERIFY(pro->say("**U 1\n"));
    clear_panel();
    click("checkBox_ch2");
    QVERIFY(pro->say("Version 1 3 4 F\n"));
    QCOMPARE(checked(), "2");
}

void Test_Audio_Panel::an_unknown_state_clears_the_boxes() {
    QVERIFY(pro->open_filled());
    QVERIFY(pro->say("**U 1\n"));
    click("checkBox_ALL");
    QVERIFY(pro->say("**A off\n"));
    QCOMPARE(checked(), QString());
}

void Test_Audio_Panel::a_reply_sends_nothing_back() {
    QVERIFY(pro->open_filled());
    QVERIFY(pro->say("**A 2\n"));
    QCOMPARE(pro->commands(), QByteArrayList{});
}

void Test_Audio_Panel::a_notice_for_both_moves_the_audio_too() {
    QVERIFY(pro->open_filled());
    click("checkBox_ALL");
    QVERIFY(pro->say("**M 2\n"));
    QCOMPARE(checked(), "2");
    QCOMPARE(pro->combo("comboBox_KM_Control").currentText(), "2");
    QCOMPARE(pro->combo("comboBox_USB_Control").currentText(), "2");
    QCOMPARE(pro->commands(), QByteArrayList{});
}

void Test_Audio_Panel::the_unconnected_slot_asks_for_the_audio_state() {
    QVERIFY(pro->open_filled());
    QVERIFY(pro->window().findChild<QPushButton*>("pushButton") == nullptr);
    QVERIFY(pro->run_slot("on_pushButton_clicked"));
    QCOMPARE(pro->commands(), QByteArrayList{"//QA"});
}

void Test_Audio_Panel::submit_is_disabled_without_a_switch() {
    QVERIFY(pro->open_filled());
    QVERIFY(pro->button("pushButton_AudioSubmit").isEnabled());
    pro->button("pushButton_OFF_Connection").click();
    QVERIFY(!pro->button("pushButton_AudioSubmit").isEnabled());
}

QTEST_MAIN(Test_Audio_Panel)
#include "test_audio_panel.moc"

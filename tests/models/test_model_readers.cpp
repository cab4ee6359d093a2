// SPDX-License-Identifier: MIT

#include "tests/support/capture_output.h"
#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QCheckBox>
#include <QTableWidget>
#include <QTest>

/// The rows of the model table that concern reading the switch's texts, each on all three windows.
class Test_Model_Readers : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_chunk_is_searched_for_audio_on_the_pro_only();
    void a_notice_for_both_sets_the_two_channels_and_on_the_pro_the_audio();
    void reading_a_confirmed_layout_back_disarms_dragging_on_the_lite_only();
    void a_grid_position_that_is_no_number_is_forgiven_on_the_plus_only();

private:
    [[nodiscard]] const Model_Facts& row() const { return model_row(tested); }
    [[nodiscard]] QTableWidget& table() const {
        return find_child<QTableWidget>(fixture->window(), "tableWidget");
    }

    Switch_Model tested = Switch_Model::lite;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Model_Readers::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(tested, *robot);
}

void Test_Model_Readers::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

void Test_Model_Readers::a_chunk_is_searched_for_audio_on_the_pro_only() {
    QVERIFY(fixture->open_filled());
    QVERIFY(fixture->say("**A 2 4\n"));
    const QList<QCheckBox*> boxes = fixture->window().findChildren<QCheckBox*>();
    QCOMPARE(!boxes.isEmpty(), row().has_audio);
    for (const QCheckBox* box : boxes) {
        QCOMPARE(box->isChecked(), box->text() == "2" || box->text() == "4");
    }
}

void Test_Model_Readers::a_notice_for_both_sets_the_two_channels_and_on_the_pro_the_audio() {
    QVERIFY(fixture->open_filled());
    QVERIFY(fixture->say("**M 3\n"));
    QCOMPARE(fixture->combo("comboBox_KM_Control").currentText(), "3");
    QCOMPARE(fixture->combo("comboBox_USB_Control").currentText(), "3");
    for (const QCheckBox* box : fixture->window().findChildren<QCheckBox*>()) {
        QCOMPARE(box->isChecked(), box->text() == "3");
    }
    QCOMPARE(fixture->commands(), QByteArrayList{});
}

void Test_Model_Readers::reading_a_confirmed_layout_back_disarms_dragging_on_the_lite_only() {
    QVERIFY(fixture->open_filled());
    QVERIFY(QMetaObject::invokeMethod(&fixture->window(), "on_tableWidget_cellPressed",
                                      Qt::DirectConnection, Q_ARG(int, 0), Q_ARG(int, 1)));
    QVERIFY(table().dragEnabled());

    QVERIFY(fixture->say("//FF01B13FF02B14FF03B15FF04B16\n"));
    QVERIFY(fixture->run_slot("set_current_layout_from_buff"));
    QVERIFY(table().item(3, 3) != nullptr);
    QCOMPARE(table().dragEnabled(), !row().disarms_drag_after_read_back);
}

void Test_Model_Readers::a_grid_position_that_is_no_number_is_forgiven_on_the_plus_only() {
    QVERIFY(fixture->open_filled());
    QVERIFY(fixture->say("**U 1\n")); // empties the buffer
    QVERIFY(fixture->say("//FF01B16FF02BxyFF03B15FF04B14\n"));

    bool threw = false;
    Captured_Output output;
    try {
        QVERIFY(fixture->run_slot("set_current_layout_from_buff"));
    } catch (const std::invalid_argument&) {
        threw = true;
    }
    const QByteArray told = output.take();

    QCOMPARE(threw, !row().forgives_bad_grid_position);
    QCOMPARE(told.startsWith("Invalid argument: "), row().forgives_bad_grid_position);
    QCOMPARE(told.endsWith('\n'), row().forgives_bad_grid_position);
    // The Plus puts the channel without a number on the first cell; the others are unchanged.
    if (row().forgives_bad_grid_position) {
        QCOMPARE(table().item(0, 0)->text(), "Channel 2");
        QCOMPARE(table().item(3, 3)->text(), "Channel 1");
    } else {
        QCOMPARE(table().item(0, 0)->text(), "Channel 1");
        QVERIFY(table().item(3, 3) == nullptr);
    }
}

QTEST_MAIN(Test_Model_Readers)
#include "test_model_readers.moc"

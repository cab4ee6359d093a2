// SPDX-License-Identifier: MIT

#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/stated_wait.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_waits.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace std::chrono_literals;

/// The length of each wait of a window on its serial line, on all three models. Measured in virtual
/// time, so that the bounds are narrow however busy the machine is.
class Test_Stated_Waits : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void the_terminal_is_scrolled_again_after_100_ms();
    void a_report_is_read_1000_ms_after_its_first_chunk();
    void a_confirmed_layout_is_read_back_after_1000_ms();
    void refresh_is_disabled_again_after_50_ms_and_locked_out_for_1700_ms();
    void a_custom_entry_is_followed_by_a_refresh_after_800_ms();
    void a_factory_reset_is_followed_by_a_refresh_after_2500_ms();
    void the_parts_of_a_settings_load_are_2000_ms_apart();
    void on_plus_and_pro_a_cancelled_load_has_a_second_part_2000_ms_later();

private:
    void click_load(const Modal_Action& in_file_dialog);
    void load_file();
    /// When the second part sends its first line. That many boxes are shown at the ends of second
    /// parts.
    [[nodiscard]] std::chrono::nanoseconds start_of_second_part(int boxes = 1);

    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
    QTemporaryDir folder;
};

namespace {

Fault_Plan silence() {
    Fault_Plan plan;
    plan.silence = true;
    return plan;
}

} // namespace

void Test_Stated_Waits::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
}

void Test_Stated_Waits::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Stated_Waits::the_terminal_is_scrolled_again_after_100_ms() {
    QVERIFY(fixture->open_filled());
    QVERIFY(fixture->say("a chunk\n"));
    QCOMPARE(wrong_wait(Window_Waits(*fixture).second_scroll(), 100ms), QByteArray());
}

void Test_Stated_Waits::a_report_is_read_1000_ms_after_its_first_chunk() {
    // The last answer of a Pro comes 800 ms after the first.
    Fault_Plan plan;
    plan.delay = 200ms;
    fixture->device.set_faults(plan);
    fixture->open();
    QVERIFY(wait_until([this] { return !fixture->terminal_text().isEmpty(); }));
    const auto wait = virtual_time::time_until([this] { return fixture->is_filled(); });
    QCOMPARE(wrong_wait(wait, 1000ms), QByteArray());
}

void Test_Stated_Waits::a_confirmed_layout_is_read_back_after_1000_ms() {
    QVERIFY(fixture->open_filled());
    Switch_State moved;
    moved.layout_positions = {5, 6, 7, 8};
    fixture->device.unit().set_state(moved);
    QVERIFY(fixture->say("Saving horizontal dimension as 4\n"));
    const auto wait = virtual_time::time_until([this] {
        return fixture->layout_positions() == QList<int>({5, 6, 7, 8});
    });
    QCOMPARE(wrong_wait(wait, 1000ms), QByteArray());
}

void Test_Stated_Waits::refresh_is_disabled_again_after_50_ms_and_locked_out_for_1700_ms() {
    QVERIFY(fixture->open_filled());
    fixture->device.set_faults(silence());
    const Window_Waits::Lock_Out wait = Window_Waits(*fixture).refresh_lock_out();
    QCOMPARE(wrong_wait(wait.disabled, 50ms), QByteArray());
    QCOMPARE(wrong_wait(wait.enabled, 1700ms), QByteArray());
}

void Test_Stated_Waits::a_custom_entry_is_followed_by_a_refresh_after_800_ms() {
    QVERIFY(fixture->open_filled());
    QCOMPARE(wrong_wait(Window_Waits(*fixture).custom_entry(), 800ms), QByteArray());
}

void Test_Stated_Waits::a_factory_reset_is_followed_by_a_refresh_after_2500_ms() {
    QVERIFY(fixture->open_filled());
    QCOMPARE(wrong_wait(Window_Waits(*fixture).factory_reset(*robot), 2500ms), QByteArray());
}

void Test_Stated_Waits::click_load(const Modal_Action& in_file_dialog) {
    robot->expect({.class_name = "QFileDialog", .action = in_file_dialog});
    fixture->button("pushButton_Load_Settings_File").click();
}

void Test_Stated_Waits::load_file() {
    QFile file(folder.filePath("unit.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(Settings_Lines().text());
    file.close();
    click_load(choose_file(file.fileName()));
}

std::chrono::nanoseconds Test_Stated_Waits::start_of_second_part(int boxes) {
    for (int i = 0; i < boxes; ++i) {
        robot->expect({.class_name = "QMessageBox", .text = "Settings file applied"});
    }
    std::chrono::nanoseconds start{0};
    // Its box is shown at once, and delays the wait here a little.
    connect(&fixture->device, &Simulated_Switch::command_received, &fixture->window(),
            [&start](const QByteArray& command) {
                if (command == "//u3" && start == 0ns) {
                    start = virtual_time::now();
                }
            });
    static_cast<void>(wait_until([this] { return robot->done(); }));
    return start;
}

void Test_Stated_Waits::the_parts_of_a_settings_load_are_2000_ms_apart() {
    QVERIFY(fixture->open_filled());
    load_file();
    const auto first_part = virtual_time::now();
    QCOMPARE(wrong_wait(start_of_second_part() - first_part, 2000ms), QByteArray());
}

void Test_Stated_Waits::on_plus_and_pro_a_cancelled_load_has_a_second_part_2000_ms_later() {
    QFETCH_GLOBAL(const Switch_Model, model);
    QVERIFY(fixture->open_filled());
    click_load(press_key(Qt::Key_Escape));
    const auto cancelled = virtual_time::now();
    virtual_time::pass(1500ms);
    load_file();
    const auto loaded = virtual_time::now();
    if (model == Switch_Model::lite) {
        QCOMPARE(wrong_wait(start_of_second_part() - loaded, 2000ms), QByteArray());
    } else {
        // It finds the first part of the file chosen meanwhile, which has its own timer as well.
        QCOMPARE(wrong_wait(start_of_second_part(2) - cancelled, 2000ms), QByteArray());
    }
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Stated_Waits test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_stated_waits.moc"

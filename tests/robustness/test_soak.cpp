// SPDX-License-Identifier: MIT

#include "tests/robustness/resource_counts.h"
#include "tests/robustness/soak.h"
#include "tests/robustness/unit_snapshot.h"
#include "tests/support/all_reports.h"
#include "tests/support/close_fixture.h"
#include "tests/support/expect_box.h"
#include "tests/support/model_fixture.h"
#include "tests/support/sample_units.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QFileDialog>
#include <QTest>
#include <QTextDocument>

/// A Lite window over hours of use, in a minute. The clicks are the user's, the bytes are the
/// line's, and every wait of the product passes in virtual time.
class Test_Soak : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void chunks_of_replies_leave_nothing_behind();
    void turning_off_and_on_leaves_nothing_behind();
    void refreshing_leaves_nothing_behind();
    void loading_settings_leaves_nothing_behind();

private:
    [[nodiscard]] bool wait_all_shown() const;
    [[nodiscard]] bool wait_obeyed(qsizetype commands) const;
    void note_sent(const QByteArray& bytes) { sent += bytes.size(); }

    std::unique_ptr<Settings_Fixture> fixture;
    Window_Fixture* lite = nullptr;
    std::unique_ptr<Soak> soak;
    qint64 sent = 0;
    int chunks = 0;
};

namespace {

using std::chrono::milliseconds;

constexpr milliseconds report_wait{1000};
constexpr milliseconds refresh_lock_out{1700};
constexpr milliseconds second_part_wait{second_part_wait_ms};

/// With all four ports: a file with fewer does not contain the positions of the other tiles.
Switch_State soaked_unit() {
    Switch_State state = used_unit();
    state.port_limit = 4;
    return state;
}

} // namespace

void Test_Soak::init() {
    sent = 0;
    chunks = 0;
    fixture = std::make_unique<Settings_Fixture>();
    lite = &fixture->window_fixture;
    lite->device.unit().set_state(soaked_unit());
    connect(&lite->device, &Simulated_Switch::sent, this, &Test_Soak::note_sent);
    lite->open();
    soak = std::make_unique<Soak>(
        *lite, [this] { lite->device.clear_record(); }, [this] { return fixture->robot.why(); });
    connect(lite->terminal().document(), &QTextDocument::contentsChange, this,
            [this] { ++chunks; });
    QVERIFY(wait_obeyed(3));
    virtual_time::leap(report_wait);
    QVERIFY(lite->wait_filled());
    lite->device.clear_record();
}

void Test_Soak::cleanup() {
    soak.reset();
    close_fixture(fixture);
}

bool Test_Soak::wait_all_shown() const {
    return wait_until([this] { return lite->device.all_sent() && soak->shown() == sent; });
}

bool Test_Soak::wait_obeyed(qsizetype commands) const {
    return wait_until([&] { return lite->device.received_commands().size() >= commands; }) &&
           wait_all_shown();
}

void Test_Soak::chunks_of_replies_leave_nothing_behind() {
    const QByteArray words[] = {"Done.\n", "**C 2\n", "**U 4\n", "a line\n", "**M 1\n"};
    // Painting the window for each would take most of the time.
    lite->window().setUpdatesEnabled(false);
    // Qt's list of timers grows to the largest number that was ever pending, two for each chunk of
    // 100 ms. A millisecond between chunks keeps it short.
    constexpr qint64 for_waiting_timers = 64 * 1024;
    soak->repeat(
        "chunks", length_of_run(100'000),
        [&](int number) {
            const int earlier = chunks;
            virtual_time::leap(milliseconds(1));
            lite->device.send(words[number % 5]);
            return wait_until([&] { return chunks > earlier && soak->shown() == sent; });
        },
        for_waiting_timers);
}

void Test_Soak::turning_off_and_on_leaves_nothing_behind() {
    lite->window().setUpdatesEnabled(false);
    soak->repeat("OFF and ON", 2000, [&](int) {
        lite->button("pushButton_OFF_Connection").click();
        const bool fell = !lite->is_connected();
        lite->button("pushButton_ON_Connection").click();
        if (!fell || !wait_obeyed(3) || !lite->is_connected()) {
            return false;
        }
        virtual_time::leap(report_wait);
        return lite->wait_filled();
    });
    QCOMPARE(differences(look_at_unit(*lite), snapshot_of(soaked_unit(), Switch_Model::lite)),
             QString());
}

void Test_Soak::refreshing_leaves_nothing_behind() {
    QPushButton& refresh = lite->button("pushButton_Refresh");
    soak->repeat("refreshes", 500, [&](int) {
        refresh.click();
        if (refresh.isEnabled() || lite->is_filled() || !wait_obeyed(3)) {
            return false;
        }
        virtual_time::leap(refresh_lock_out);
        return lite->wait_filled() && wait_until([&] { return refresh.isEnabled(); });
    });
    QCOMPARE(differences(look_at_unit(*lite), snapshot_of(soaked_unit(), Switch_Model::lite)),
             QString());
}

void Test_Soak::loading_settings_leaves_nothing_behind() {
    const QString path = fixture->path();
    QVERIFY(fixture->save(path));
    const QByteArray before = all_reports(lite->device.unit().state());
    // Qt keeps a little memory of each file dialog: measured on dialogs that the test itself opens
    // in the same way.
    constexpr qint64 no_limit = 1'000'000;
    constexpr int loads = 200;
    const qint64 kept_by_dialogs = soak->repeat(
        "bare file dialogs", loads,
        [&](int) {
            fixture->expect_file_dialog("Select file", choose_file(path));
            QFileDialog dialog;
            dialog.setWindowTitle("Select file");
            const bool accepted = dialog.exec() == QDialog::Accepted;
            fixture->robot.clear_snapshots();
            return accepted && fixture->robot.done();
        },
        no_limit);
    soak->repeat(
        "settings loads", loads,
        [&](int) {
            if (!fixture->load_first_part(path) || !wait_obeyed(first_part_labels.size())) {
                return false;
            }
            lite->device.clear_record();
            fixture->robot.clear_snapshots();
            fixture->expect_applied_box();
            virtual_time::leap(second_part_wait);
            // The tool then reads back the layout that the unit confirms.
            if (!wait_until([&] { return fixture->robot.done(); }) ||
                !wait_obeyed(fixture->sent_in_second_part(Settings_Lines()).size() + 1)) {
                return false;
            }
            virtual_time::leap(report_wait);
            return true;
        },
        kept_by_dialogs);
    QCOMPARE(all_reports(lite->device.unit().state()), before);
}

int main(int argc, char** argv) {
    count_objects();
    const QApplication application(argc, argv);
    Test_Soak test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_soak.moc"

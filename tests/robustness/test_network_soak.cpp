// SPDX-License-Identifier: MIT

#include "tests/robustness/resource_counts.h"
#include "tests/robustness/soak.h"
#include "tests/robustness/unit_snapshot.h"
#include "tests/support/network_test.h"
#include "tests/support/sample_units.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QTextDocument>

/// A Pro window on an adapter over hours of use, in less than a minute: its socket, its wizard's
/// dialogs and its conversations with the adapter are created and destroyed all the time.
class Test_Network_Soak : public Network_Test {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();

    void chunks_of_replies_leave_nothing_behind();
    void turning_off_and_on_leaves_nothing_behind();
    void refreshing_leaves_nothing_behind();
    void runs_of_the_wizard_leave_nothing_behind();

private:
    /// The questions of the start have arrived, and the pages show their answers.
    [[nodiscard]] bool wait_asked_and_filled() const;

    std::unique_ptr<Soak> soak;
};

namespace {

using std::chrono::milliseconds;

constexpr milliseconds refresh_lock_out{1700};
/// A unit must answer within this time after ON.
constexpr milliseconds max_answer{7000};

} // namespace

void Test_Network_Soak::initTestCase_data() {
    QTest::addColumn<Switch_Model>("model");
    QTest::newRow("Pro") << Switch_Model::pro;
}

void Test_Network_Soak::init() {
    Network_Test::init();
    at->unit.set_state(used_unit());
    QVERIFY(at->open_network());
    const auto forget = [this] {
        at->taken.clear();
        at->robot.clear_snapshots();
        at->network.forget();
    };
    soak = std::make_unique<Soak>(*at, forget, [this] { return at->robot.why(); });
}

void Test_Network_Soak::cleanup() {
    soak.reset();
    Network_Test::cleanup();
}

bool Test_Network_Soak::wait_asked_and_filled() const {
    return wait_until([this] { return at->taken.size() >= at->start_commands().size(); }) &&
           at->wait_connected() && at->wait_filled();
}

void Test_Network_Soak::chunks_of_replies_leave_nothing_behind() {
    const QByteArray words[] = {"Done.\n", "**C 2\n", "**U 4\n", "a line\n", "**M 1\n"};
    // Painting the window for each would take most of the time.
    at->window().setUpdatesEnabled(false);
    // Qt's list of timers grows to the largest number that was ever pending. A millisecond between
    // chunks keeps it short.
    constexpr qint64 for_waiting_timers = 64 * 1024;
    soak->repeat(
        "chunks", length_of_run(20'000),
        [&](int number) {
            const QByteArray& word = words[number % 5];
            const qint64 wanted = soak->shown() + word.size();
            virtual_time::leap(milliseconds(1));
            at->adapter.send_from_switch(word);
            return wait_until([&] { return soak->shown() == wanted; });
        },
        for_waiting_timers);
}

void Test_Network_Soak::turning_off_and_on_leaves_nothing_behind() {
    at->window().setUpdatesEnabled(false);
    soak->repeat("OFF and ON", 500, [&](int) {
        at->button("pushButton_OFF_Connection").click();
        const bool fell = !at->is_connected();
        at->button("pushButton_ON_Connection").click();
        const bool came_back = wait_asked_and_filled();
        virtual_time::leap(max_answer);
        QCoreApplication::processEvents();
        return fell && came_back && at->is_connected();
    });
    QCOMPARE(differences(look_at_unit(*at), snapshot_of(used_unit(), Switch_Model::pro)),
             QString());
}

void Test_Network_Soak::refreshing_leaves_nothing_behind() {
    const QPushButton& refresh = at->button("pushButton_Refresh");
    soak->repeat("refreshes", 500, [&](int) {
        at->button("pushButton_Refresh").click();
        if (at->is_filled() || !wait_asked_and_filled()) {
            return false;
        }
        // The answers have enabled the button already; the timer of the lock-out is still running.
        virtual_time::leap(refresh_lock_out);
        QCoreApplication::processEvents();
        return refresh.isEnabled();
    });
    QCOMPARE(differences(look_at_unit(*at), snapshot_of(used_unit(), Switch_Model::pro)),
             QString());
}

void Test_Network_Soak::runs_of_the_wizard_leave_nothing_behind() {
    soak->repeat("runs of the wizard", 100, [&](int) {
        at->expect_network_path();
        at->run_wizard();
        return at->robot.done() && wait_asked_and_filled() && Network_Fixture::socket_count() == 1;
    });
    QCOMPARE(differences(look_at_unit(*at), snapshot_of(used_unit(), Switch_Model::pro)),
             QString());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        count_objects();
        const QApplication application(count, values);
        Test_Network_Soak test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_network_soak.moc"

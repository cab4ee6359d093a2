// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"
#include "usr/usr_searcher.h"

#include <QCursor>
#include <QWindow>

/// What is visible while the wizard's adapter code blocks the program: the wait cursor, and the
/// dialog that started it.
class Test_Wizard_Waiting : public Network_Test {
    Q_OBJECT

private slots:
    void the_dialog_that_led_there_stays_painted();
    void later_the_main_window_stays_as_well();
    void nothing_stays_painted_behind_the_wizard();
    void the_wait_cursor_shows_while_the_search_listens();
    void no_box_or_dialog_has_the_wait_cursor();

private:
    /// Records what is on the screen at each blocking wait from now on.
    void watch_waits();

    QStringList windows_at_waits;
    QStringList cursors_at_waits;
};

namespace {

QString cursor_shown() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor == nullptr ? "usual" : cursor->shape() == Qt::WaitCursor ? "wait" : "another";
}

/// The windows that the window system shows, whether or not Qt counts their widgets as hidden.
QString windows_on_screen() {
    QStringList names;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible()) {
            names << window->objectName().remove("Window");
        }
    }
    names.sort();
    return names.join('+');
}

const QString method = "Select_connection_method_Dialog";
const QString login = "Credentials_Dialog";

} // namespace

void Test_Wizard_Waiting::watch_waits() {
    windows_at_waits.clear();
    cursors_at_waits.clear();
    fake_waiting::while_blocked([this] {
        windows_at_waits << windows_on_screen();
        cursors_at_waits << cursor_shown();
        at->network.process_pending();
    });
}

void Test_Wizard_Waiting::the_dialog_that_led_there_stays_painted() {
    at->expect_network_path();
    watch_waits();
    at->open();
    // A search; then twice a search and a login, on Continue and before the IP settings show.
    const QStringList expected{method + "Picture", login, login, login + "Picture",
                               login + "Picture"};
    QCOMPARE(windows_at_waits, expected);
    QCOMPARE(cursors_at_waits, QStringList(5, "wait"));
    QCOMPARE(cursor_shown(), "usual");
}

void Test_Wizard_Waiting::later_the_main_window_stays_as_well() {
    QVERIFY(at->open_network());
    at->expect_network_path();
    watch_waits();
    at->run_wizard();
    const QString main_window = at->window().objectName() + '+';
    const QStringList expected{main_window + method + "Picture", main_window + login,
                               main_window + login, main_window + login + "Picture",
                               main_window + login + "Picture"};
    QCOMPARE(windows_at_waits, expected);
    QCOMPARE(cursors_at_waits, QStringList(5, "wait"));
}

void Test_Wizard_Waiting::nothing_stays_painted_behind_the_wizard() {
    QVERIFY(at->open_network());
    QCOMPARE(windows_on_screen(), at->window().objectName());
    at->robot.expect(choose_serial());
    at->run_wizard();
    QVERIFY(wait_until([&] { return windows_on_screen() == at->window().objectName(); }));
}

void Test_Wizard_Waiting::the_wait_cursor_shows_while_the_search_listens() {
    USR_searcher searcher;
    QString while_listening;
    fake_waiting::at_clock_reading(50, [&] { while_listening = cursor_shown(); });
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(while_listening, "wait");
    QCOMPARE(cursor_shown(), "usual");
}

void Test_Wizard_Waiting::no_box_or_dialog_has_the_wait_cursor() {
    QStringList cursors;
    const auto note_and = [&](const Modal_Expectation& expectation) {
        Modal_Expectation noting = expectation;
        noting.action = [&cursors, action = expectation.action](QWidget& modal) {
            cursors << cursor_shown();
            return action(modal);
        };
        return noting;
    };
    at->robot.expect(note_and(choose_network()));
    at->robot.expect(note_and(choose_adapter()));
    at->robot.expect(note_and(log_in("admin", "wrong")));
    at->robot.expect(note_and(
        {.class_name = "QMessageBox", .text = "Bad credentials", .action = press_button("OK")}));
    at->robot.expect(note_and(log_in()));
    at->robot.expect(note_and(connect_adapter()));
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(cursors, QStringList(6, "usual"));

    // A failure in the middle of a search.
    cursors.clear();
    fake_waiting::fail_at_next_block();
    at->robot.expect(note_and(
        {.class_name = "QMessageBox", .text = "Search USR error", .action = press_button("OK")}));
    QCOMPARE(USR_searcher().search_USR_in_network(), -1);
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(cursors, QStringList("usual"));
}

int main(int argc, char** argv) { return run_network_test<Test_Wizard_Waiting>(argc, argv); }

#include "test_wizard_waiting.moc"

// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/private_network.h"
#include "tests/support/stated_wait.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"
#include "tests/usr/ip_dialog_widgets.h"

#include <QPointer>
#include <QTest>
#include <QWindow>

#include <memory>
#include <optional>

using namespace std::chrono_literals;
using std::chrono::duration_cast;
using std::chrono::milliseconds;

/// What follows a successful Apply in the dialog of the IP settings: the adapter disappears, and
/// the tool searches for it again after a fixed time, in virtual time.
class Test_IP_Change : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_static_address_is_looked_for_after_3500_ms();
    void dhcp_sends_the_fields_text_and_is_looked_for_after_6000_ms();
    void an_adapter_that_does_not_come_back_is_asked_400_times_and_success_is_shown();
    void an_adapter_that_turns_up_during_the_logins_is_read();
    void closed_during_the_wait_the_dialog_still_finishes();
    void deleted_during_the_wait_the_dialog_leaves_nothing_behind();
    void the_waiting_box_can_be_dismissed_and_the_dialog_used_beside_it();
};

namespace {

constexpr const char* new_ip = "127.0.0.77";
constexpr int max_wait_ms = 20'000;

const char* const ip_applied = "The IP was applied successfully";

std::unique_ptr<IP_Settings_Dialog> make_dialog(const QString& allocation) {
    return std::make_unique<IP_Settings_Dialog>(adapter_ip, "admin", "admin", allocation);
}

/// The time from the apply frame to the next search.
class Search_Pause {
public:
    explicit Search_Pause(const Fast_Network& network) {
        QObject::connect(&network, &Adapter_Network::frame_received, &network,
                         [this](const QByteArray& frame) { take(frame.at(2)); });
    }

    [[nodiscard]] milliseconds length() const { return pause; }

private:
    void take(char command) {
        if (command == 4) {
            applied = virtual_time::now();
        } else if (command == 1 && applied && pause < 0ms) {
            pause = duration_cast<milliseconds>(virtual_time::now() - *applied);
        }
    }

    std::optional<std::chrono::nanoseconds> applied;
    milliseconds pause{-1};
};

/// The time from now to the first frame.
class First_Frame {
public:
    explicit First_Frame(const Fast_Network& network) {
        QObject::connect(&network, &Adapter_Network::frame_received, &network, [this] {
            if (pause < 0ms) {
                pause = duration_cast<milliseconds>(virtual_time::now() - start);
            }
        });
    }

    [[nodiscard]] milliseconds after() const { return pause; }

private:
    const std::chrono::nanoseconds start = virtual_time::now();
    milliseconds pause{-1};
};

QString text_of_box(const QMessageBox* box) { return box ? box->text() : QString(); }

/// Presses a widget as the mouse does, through its window: a window that is blocked by a modal one
/// ignores it.
void press_through_window(const QWidget& widget) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                      widget.mapTo(widget.window(), widget.rect().center()));
}

} // namespace

void Test_IP_Change::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_IP_Change::a_static_address_is_looked_for_after_3500_ms() {
    Fast_Network network;
    network.add_adapter();
    const auto dialog = make_dialog("00");
    dialog->show();
    const Ip_Dialog_Widgets widgets(*dialog);
    const Search_Pause pause(network);
    widgets.fixed.click();
    widgets.address.setText(new_ip);
    widgets.mask.setText("255.255.0.0");
    widgets.gateway.setText("127.0.0.3");

    Modal_Robot robot;
    expect_information(robot, ip_applied);
    const First_Frame first_frame(network);
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }, max_wait_ms), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(wrong_wait(first_frame.after(), 50ms), QByteArray());
    QCOMPARE(wrong_wait(pause.length(), 3500ms), QByteArray());
    QVERIFY(waiting_box() == nullptr);
    QCOMPARE(widgets.label.text(), QString(new_ip));
    QCOMPARE(widgets.texts(), QStringList({new_ip, "255.255.0.0", "127.0.0.3"}));
    QCOMPARE(dialog->get_current_ip(), QString(new_ip));
    QCOMPARE(dialog->get_static_ip(), QString(new_ip));
    QCOMPARE(dialog->get_subnet_mask(), QString("255.255.0.0"));
    QCOMPARE(dialog->get_gateway(), QString("127.0.0.3"));
    QCOMPARE(dialog->get_ip_allocation(), QString("80"));
    QCOMPARE(dialog->get_usr_name(), QString("OSTREL"));
    QVERIFY(widgets.connect.isEnabled());
    QVERIFY(widgets.fixed.isChecked());
}

void Test_IP_Change::dhcp_sends_the_fields_text_and_is_looked_for_after_6000_ms() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    Adapter_State state = adapter.unit().state();
    state.dhcp = false;
    state.dhcp_address = QHostAddress("127.0.0.90");
    adapter.unit().set_state(state);
    const auto dialog = make_dialog("80");
    dialog->show();
    const Ip_Dialog_Widgets widgets(*dialog);
    const Search_Pause pause(network);
    widgets.address.setText("127.0.0.55");
    widgets.dhcp.click();

    Modal_Robot robot;
    expect_information(robot, ip_applied);
    const First_Frame first_frame(network);
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }, max_wait_ms), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(wrong_wait(first_frame.after(), 50ms), QByteArray());
    QCOMPARE(wrong_wait(pause.length(), 6000ms), QByteArray());
    QVERIFY(adapter.unit().state().dhcp);
    QCOMPARE(adapter.unit().state().static_ip.toString(), QString("127.0.0.55"));
    // What the adapter reports, not what was typed.
    QCOMPARE(widgets.label.text(), QString("127.0.0.90"));
    QCOMPARE(dialog->get_current_ip(), QString("127.0.0.90"));
    QCOMPARE(widgets.address.text(), QString("127.0.0.55"));
    QCOMPARE(dialog->get_ip_allocation(), QString("00"));
}

void Test_IP_Change::an_adapter_that_does_not_come_back_is_asked_400_times_and_success_is_shown() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.never_comes_back = true});
    const auto dialog = make_dialog("80");
    dialog->show();
    const Ip_Dialog_Widgets widgets(*dialog);
    const qsizetype logins_before = network.frames_of("03").size();
    widgets.address.setText(new_ip);

    Modal_Robot robot;
    expect_warning(robot, "Get static IP error");
    expect_warning(robot, "Get subnet mask error");
    expect_warning(robot, "Get gateway error");
    expect_information(robot, ip_applied);
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }, max_wait_ms), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(network.frames_of("03").size() - logins_before, 4 * 100);
    QCOMPARE(widgets.label.text(), QString());
    QCOMPARE(dialog->get_current_ip(), QString());
    QCOMPARE(dialog->get_static_ip(), QString("-1"));
    QCOMPARE(dialog->get_usr_name(), QString("OSTREL"));
    QVERIFY(waiting_box() == nullptr);
}

void Test_IP_Change::an_adapter_that_turns_up_during_the_logins_is_read() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.never_comes_back = true});
    const auto dialog = make_dialog("80");
    dialog->show();
    const Ip_Dialog_Widgets widgets(*dialog);
    widgets.address.setText(new_ip);
    const qsizetype logins_before = network.frames_of("03").size();
    bool is_back = false;
    fake_waiting::while_blocked([&] {
        if (network.frames_of("03").size() == logins_before + 5 && !adapter.is_online()) {
            is_back = adapter.go_online();
        }
        network.process_pending();
    });

    Modal_Robot robot;
    expect_information(robot, ip_applied);
    widgets.apply.click();
    QVERIFY2(wait_until([&] { return widgets.apply.isEnabled(); }, max_wait_ms), robot.why());
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(is_back);
    QCOMPARE(widgets.label.text(), QString());
    QCOMPARE(dialog->get_static_ip(), QString(new_ip));
    QCOMPARE(network.frames_of("03").size() - logins_before, 6);
}

void Test_IP_Change::closed_during_the_wait_the_dialog_still_finishes() {
    Fast_Network network;
    network.add_adapter();
    const auto dialog = make_dialog("80");
    Ip_Dialog_Widgets(*dialog).address.setText(new_ip);
    Modal_Robot robot;
    robot.expect({.class_name = ip_settings_class, .action = press_object("pushButton_Apply_IP")});
    // After the settings have been sent.
    robot.expect({.class_name = ip_settings_class, .action = [&](QWidget& modal) {
                      const bool is_sent = wait_until(
                          [&] { return !network.frames_of("04").isEmpty(); }, max_wait_ms);
                      return is_sent ? close_by_frame()(modal) : QString("nothing was sent");
                  }});
    expect_information(robot, ip_applied);
    dialog->exec();
    QVERIFY(dialog->is_closed_by_user());
    QCOMPARE(dialog->get_current_ip(), QString(adapter_ip));
    QCOMPARE(text_of_box(waiting_box()), QString("Please wait for changes to be made"));
    QVERIFY2(wait_until([&] { return robot.done(); }, max_wait_ms), robot.why());
    QVERIFY(wait_until([] { return QApplication::activeModalWidget() == nullptr; }));
    QCOMPARE(dialog->get_current_ip(), QString(new_ip));
    QVERIFY(dialog->is_closed_by_user());
    QVERIFY(waiting_box() == nullptr);
}

void Test_IP_Change::deleted_during_the_wait_the_dialog_leaves_nothing_behind() {
    Fast_Network network;
    network.add_adapter();
    auto dialog = make_dialog("80");
    dialog->show();
    Ip_Dialog_Widgets(*dialog).apply.click();
    QVERIFY(wait_until([&] { return !network.frames_of("04").isEmpty(); }));
    const qsizetype searches = network.frames_of("01").size();
    dialog.reset();
    QCOMPARE(windows_left(), QStringList());
    QVERIFY(!wait_until([&] { return network.frames_of("01").size() > searches; }, 10'000));
}

void Test_IP_Change::the_waiting_box_can_be_dismissed_and_the_dialog_used_beside_it() {
    Fast_Network network;
    network.add_adapter();
    const auto dialog = make_dialog("80");
    const Ip_Dialog_Widgets widgets(*dialog);
    bool box_was_visible = false;
    bool dialog_took_the_mouse = false;
    bool box_took_the_mouse = false;
    Modal_Robot robot;
    robot.expect({.class_name = ip_settings_class, .action = press_object("pushButton_Apply_IP")});
    robot.expect({.class_name = ip_settings_class, .action = [&](QWidget&) {
                      const QPointer<QMessageBox> box = waiting_box();
                      box_was_visible = box != nullptr;
                      if (!box) {
                          return QString("no waiting box");
                      }
                      widgets.address.selectAll();
                      press_through_window(widgets.address);
                      dialog_took_the_mouse = !widgets.address.hasSelectedText();
                      press_through_window(*box->button(QMessageBox::Ok));
                      box_took_the_mouse = !box->isVisible();
                      return QString();
                  }});
    expect_information(robot, ip_applied);
    robot.expect({.class_name = ip_settings_class, .action = close_by_frame()});
    robot.set_patience(std::chrono::seconds(20));
    dialog->exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(box_was_visible);
    QVERIFY(dialog_took_the_mouse);
    QVERIFY(box_took_the_mouse);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_IP_Change test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_ip_change.moc"

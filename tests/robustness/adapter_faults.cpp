// SPDX-License-Identifier: MIT

#include "tests/robustness/adapter_faults.h"

#include "sim/adapter_options.h"
#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/find_child.h"
#include "tests/support/virtual_time.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace {

constexpr int all_attempts = 100;

const QStringList unread_settings = {"Get static IP error", "Get subnet mask error",
                                     "Get gateway error"};

/// Reads the names from the list of the dialog; three spaces precede each.
Modal_Action read_names(QStringList& names) {
    return [&names](QWidget& dialog) {
        const auto& list = find_child<QComboBox>(dialog, "comboBox");
        for (int index = 0; index < list.count(); ++index) {
            names << list.itemText(index).section("   ", 1);
        }
        return QString();
    };
}

} // namespace

QStringList Adapter_Fault_Case::arguments() const {
    QStringList all = {"halvern-sim-adapter", "--" + option};
    if (!value.isNull()) {
        all << value;
    }
    return all;
}

QString Adapter_Fault_Case::title() const {
    return value.isNull() ? option + '`' : option + " \"" + value + "\"`";
}

const std::vector<Adapter_Fault_Case>& adapter_fault_cases() {
    const QString frozen_login =
        "The login is tried 100 times, and the window does not react meanwhile";
    const QString search_on = "The search starts again until every answer has 36 bytes, and the "
                              "window does not react meanwhile. Then everything is correct.";
    const QString unread =
        frozen_login +
        "; the same happens for each address in IP Settings. The addresses are not read, a "
        "message box appears for each, and connecting works.";
    static const std::vector<Adapter_Fault_Case> cases = {
        {.option = "name-hex",
         .value = "fffe4142",
         .words = "Replacement characters appear in the name; everything else is correct.",
         .names = {QString(2, QChar(QChar::ReplacementCharacter)) + "AB"}},
        {.option = "name",
         .value = "",
         .words = "The list shows only the address; everything is correct.",
         .names = {""}},
        {.option = "name",
         .value = "SIXTEEN-LETTERS.",
         .words = "A name without a zero byte after it is shown completely; everything is correct.",
         .names = {"SIXTEEN-LETTERS."}},
        {.option = "name",
         .value = "<b>BOLD</b>",
         .words = "The markup is shown as text; everything is correct.",
         .names = {"<b>BOLD</b>"}},
        {
            .option = "split",
            .value = "100",
            .words = "Pieces that arrive together are read as one, and everything is correct. For "
                     "pieces that arrive separately, see the switch's fault chunk.",
        },
        {.option = "delay",
         .value = "300",
         .words = "Everything is correct: search and login wait 500 ms each. With a longer delay, "
                  "a login is tried again; a search listens for 1.5 s in total."},
        {.option = "copies",
         .value = "0",
         .words = "The message box \"No hardware online\" appears, and the program ends.",
         .last_box = "No hardware online",
         .dialogs_before_the_end = 1},
        {.option = "copies",
         .value = "3",
         .words =
             frozen_login + "; then the first answer is used. The list shows the adapter once.",
         .login_attempts = all_attempts},
        {.option = "silent-search",
         .words = "The message box \"No hardware online\" appears, and the program ends.",
         .last_box = "No hardware online",
         .dialogs_before_the_end = 1},
        {.option = "silent-login",
         .value = "2",
         .words = "The login is tried until it is answered; each attempt takes 2 seconds. Then "
                  "everything is correct.",
         .login_attempts = 3},
        {.option = "silent-login",
         .value = "-1",
         .words = unread,
         .warnings = unread_settings + unread_settings,
         .login_attempts = all_attempts},
        {.option = "never-back",
         .words = "After Apply IP the addresses are not read, and a message box appears for each. "
                  "\"The IP was applied successfully\" still appears, and Connect ends the program "
                  "with \"No connection\". Without Apply IP everything is correct.",
         .warnings = unread_settings,
         .last_box = "No connection",
         .dialogs_before_the_end = 3,
         .applies = true},
        {.option = "search-bytes", .value = "35", .words = search_on, .lasts_searches = 3},
        {.option = "login-bytes",
         .value = "259",
         .words = frozen_login + "; then the answer is used as it is.",
         .login_attempts = all_attempts},
        {.option = "login-bytes",
         .value = "4",
         .words = "The message box \"Bad credentials\" appears, and the login dialog opens again.",
         .warnings = {"Bad credentials"},
         .login_attempts = 2},
        {.option = "login-bytes",
         .value = "0",
         .words = unread,
         .warnings = unread_settings + unread_settings,
         .login_attempts = all_attempts},
        {.option = "foreign", .value = "20", .words = search_on, .lasts_searches = 3},
        {.option = "foreign",
         .value = "36",
         .words = "It is listed as a separate adapter with its sender's address.",
         .names = {"BBBBBBBBBBBBBBBB", "ADAPTER"}},
    };
    return cases;
}

void set_up_as_described(Network_Fixture& at, const Adapter_Fault_Case& fault) {
    QString error;
    const auto options = read_adapter_options(fault.arguments(), error);
    if (!options) {
        qFatal("%s", qPrintable(error));
    }
    at.adapter.unit().set_state(options->first);
    at.adapter.unit().set_faults(options->faults);
    at.adapter.set_split(options->split_bytes);
    at.adapter.set_delay(options->delay);
    if (options->delay.count() > 0) {
        // The tool and the adapter share a thread: the adapter's timer runs while the tool sleeps,
        // 500 ms each time.
        fake_waiting::while_blocked([&at] {
            at.network.process_pending();
            virtual_time::leap(std::chrono::milliseconds(500));
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    }
    if (fault.lasts_searches > 0) {
        fake_waiting::while_blocked([&at, searches = fault.lasts_searches] {
            at.network.process_pending();
            if (fake_waiting::block_count() == searches) {
                at.adapter.unit().set_faults({});
            }
        });
    }
}

void expect_path(Network_Fixture& at, const Adapter_Fault_Case& fault, QStringList& names) {
    at.robot.set_patience(std::chrono::seconds(60));
    at.robot.expect(choose_network());
    if (fault.dialogs_before_the_end == 1) {
        return;
    }
    at.robot.expect({.class_name = "Select_hardware_Dialog",
                     .action = in_order({read_names(names), press_button("Continue")})});
    at.robot.expect(log_in());
    if (fault.applies) {
        at.robot.expect({.class_name = "IP_Settings_Dialog",
                         .action = in_order({press_object("radioButton_Static"),
                                             press_object("pushButton_Apply_IP")})});
    }
    for (const QString& warning : fault.warnings) {
        expect_warning(at.robot, warning);
    }
    if (fault.warnings == QStringList("Bad credentials")) {
        Modal_Expectation again = log_in();
        again.action = in_order({[&at](QWidget&) {
                                     at.adapter.unit().set_faults({});
                                     return QString();
                                 },
                                 again.action});
        at.robot.expect(again);
    }
    if (fault.applies) {
        expect_information(at.robot, "The IP was applied successfully");
    }
    at.robot.expect(connect_adapter());
}

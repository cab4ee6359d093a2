// SPDX-License-Identifier: MIT

#include "benchmarks/window_on_line.h"

#include "benchmarks/measurements.h"
#include "sim/port_list.h"
#include "sim/switch_report.h"
#include "tests/support/find_child.h"
#include "tests/support/sample_units.h"
#include "tests/support/wait_until.h"
#include "windows/halvern_velmoran_lite.h"
#include "windows/halvern_velmoran_plus.h"
#include "windows/halvern_velmoran_pro.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWindow>

#include <thread>
#include <utility>

namespace {

/// Chooses the serial line as soon as the dialog for the connection method is shown.
class Serial_Path : public QObject {
public:
    Serial_Path() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* dialog = qobject_cast<QDialog*>(watched);
            dialog != nullptr && event->type() == QEvent::Show) {
            QTimer::singleShot(0, dialog, [dialog] {
                find_child<QRadioButton>(*dialog, "radioButton_RS232").setChecked(true);
                find_child<QPushButton>(*dialog, "pushButton_continue").click();
            });
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

const Switch_State& one_state() {
    static const Switch_State state;
    return state;
}

const Switch_State& other_state() {
    static const Switch_State state = [] {
        Switch_State used = used_unit();
        used.buzzer = !one_state().buzzer;
        return used;
    }();
    return state;
}

Window_On_Line::Window_On_Line(const QString& model_name) : model(model_name) {
    list_ports({pty.device_name()});
    if (model == "Lite") {
        make_window<Halvern_Velmoran_LITE>();
    } else if (model == "Plus") {
        make_window<Halvern_Velmoran_PLUS>();
    } else {
        make_window<Halvern_Velmoran_PRO>();
    }
    main_window->show();
    if (!wait_until([this] { return main_window->windowHandle()->isExposed(); })) {
        throw Measurement_Failed("the window does not come on screen");
    }
}

QByteArray Window_On_Line::report(const Switch_State& state) const {
    const QByteArray text = status_report(state) + information_report(state) + layout_report(state);
    return model == "Pro" ? text + audio_report(state) : text;
}

template <class Window>
void Window_On_Line::make_window() {
    const Serial_Path path;
    auto window = std::make_unique<Window>();
    send_first_question = [w = window.get()] { w->send_initial_command(); };
    main_window = std::move(window);
}

void Window_On_Line::call(const char* slot) const {
    if (!QMetaObject::invokeMethod(main_window.get(), slot, Qt::DirectConnection)) {
        throw Measurement_Failed(QString("no slot ") + slot);
    }
}

bool Window_On_Line::shows(const Switch_State& state) const {
    return find_child<QLabel>(*main_window, "label_Current_Hotkey_Trigger_Data").text() ==
           QString::fromUtf8(state.hotkey_trigger);
}

void Window_On_Line::fill_pages(const Switch_State& state) const {
    pty.drop_input();
    std::jthread unit([this, &state] {
        if (pty.read_up_to("//BP\r")) {
            pty.write(report(state));
        }
    });
    call("refresh_UI");
    if (!wait_until([this, &state] { return shows(state); })) {
        throw Measurement_Failed("the pages are not filled");
    }
}

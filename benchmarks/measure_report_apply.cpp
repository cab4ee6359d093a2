// SPDX-License-Identifier: MIT

// Applying a whole report to all three pages, painting included, compared with setting the same
// widgets of the bare form directly.

#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "benchmarks/window_on_line.h"
#include "pages/grid.h"
#include "sim/switch_report.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"
#include "windows/window_widgets.h"

#include <QComboBox>
#include <QMainWindow>
#include <QSignalBlocker>
#include <QTableWidgetItem>
#include <QTextDocument>
#include <QTextEdit>
#include <QWindow>

namespace {

constexpr int apply_rounds = 31;
constexpr int fixed_items = 9;

const QStringList resolution_boxes = {
    "comboBox_mouse_movement_resolution_setting_1", "comboBox_mouse_movement_resolution_setting_2",
    "comboBox_mouse_movement_resolution_setting_3", "comboBox_mouse_movement_resolution_setting_4"};

/// Removes the custom names again, as every refresh does before its report.
void remove_custom_items(const QMainWindow& window) {
    for (const QString& name : resolution_boxes) {
        auto& box = find_child<QComboBox>(window, name);
        const QSignalBlocker silent(box);
        while (box.count() > fixed_items) {
            box.removeItem(box.count() - 1);
        }
    }
}

/// Puts a report into the window's buffer without starting its wait, then applies it.
double apply_milliseconds(const Window_On_Line& on_line, const Switch_State& state) {
    const QTextDocument& shown =
        *find_child<QTextEdit>(on_line.window(), "textEdit_Main_Terminal").document();
    const QByteArray report = on_line.report(state);
    const qsizetype shown_after = shown.characterCount() + report.size();
    remove_custom_items(on_line.window());
    on_line.ask_for_report();
    on_line.line().write(report);
    if (!wait_until([&] { return shown.characterCount() >= shown_after; })) {
        throw Measurement_Failed("the report does not come");
    }
    on_line.line().drop_input();

    const qint64 begin = now_ns();
    on_line.call("get_data_from_TQL_by_serial_port");
    QCoreApplication::processEvents();
    const qint64 end = now_ns();
    if (!on_line.shows(state)) {
        throw Measurement_Failed("the report was not applied");
    }
    return milliseconds_between(begin, end);
}

template <class Form>
class Bare_Form : public QMainWindow {
public:
    Bare_Form() {
        form.setupUi(this);
        setFixedSize(1305, 693);
        form.stackedWidget->setCurrentIndex(0);
        show();
        if (!wait_until([this] { return windowHandle()->isExposed(); })) {
            throw Measurement_Failed("the bare form does not come on screen");
        }
    }

    double set_milliseconds(const Switch_State& state) {
        remove_custom_items(*this);
        QCoreApplication::processEvents();
        const qint64 begin = now_ns();
        set_configuration(state);
        set_mouse_speed(state);
        set_layout(state);
        QCoreApplication::processEvents();
        return milliseconds_between(begin, now_ns());
    }

private:
    void set_configuration(const Switch_State& state) {
        form.label_Current_Hotkey_Trigger_Data->setText(QString::fromUtf8(state.hotkey_trigger));
        form.comboBox_KM_Control->setCurrentIndex(state.km_channel - 1);
        form.comboBox_USB_Control->setCurrentIndex(state.usb_channel - 1);
        form.lineEdit_MouseParking_x->setText(QString::number(state.parking_x));
        form.lineEdit_MouseParking_y->setText(QString::number(state.parking_y));
        form.comboBox_Select_active_port->setCurrentIndex(state.port_limit - 2);
        form.comboBox_Enable_or_Disable_Cursor_Roll->setCurrentIndex(state.cursor_rolling ? 1 : 0);
        form.comboBox_Select_Display_Mode->setCurrentIndex(state.relative_mouse ? 1 : 0);
        form.pushButton_ON_Beep->setEnabled(!state.buzzer);
        form.pushButton_OFF_Beep->setEnabled(state.buzzer);
    }

    void set_mouse_speed(const Switch_State& state) {
        const Mouse_Speed_Widgets widgets = mouse_speed_widgets(form);
        for (std::size_t i = 0; i < state.custom_entries.size(); ++i) {
            const Custom_Entry& entry = state.custom_entries[i];
            const QString name = QString::fromUtf8(entry.name);
            widgets.custom_setting_labels[i]->setText(
                QString("%1 %2 %3").arg(entry.x_speed).arg(entry.y_speed).arg(name));
            for (QComboBox* box : widgets.resolution_combo_boxes) {
                box->addItem(name);
            }
        }
        for (std::size_t i = 0; i < state.resolutions.size(); ++i) {
            widgets.resolution_combo_boxes[i]->setCurrentIndex(state.resolutions[i] - 1);
        }
        const Custom_Entry& first = state.custom_entries.front();
        widgets.lineEdit_Mouse_Movement_Name.setText(QString::fromUtf8(first.name));
        widgets.lineEdit_Mouse_Movement_X.setText(QString::number(first.x_speed));
        widgets.lineEdit_Mouse_Movement_Y.setText(QString::number(first.y_speed));
    }

    void set_layout(const Switch_State& state) {
        constexpr int columns = 4;
        const std::array<QBrush, 4> brushes = {brush_channel_1, brush_channel_2, brush_channel_3,
                                               brush_channel_4};
        form.tableWidget->clear();
        for (std::size_t i = 0; i < brushes.size(); ++i) {
            auto* tile = new QTableWidgetItem(QString("Channel %1").arg(i + 1));
            tile->setBackground(brushes[i]);
            tile->setTextAlignment(Qt::AlignCenter);
            tile->setFont(QFont("Arial", 18, QFont::Bold));
            const int cell = state.layout_positions[i] - 1;
            form.tableWidget->setItem(cell / columns, cell % columns, tile);
        }
    }

    Form form;
};

template <class Form>
Rows measure_apply_to(const QString& model) {
    const Window_On_Line on_line(model);
    on_line.fill_pages(one_state());
    Bare_Form<Form> bare;
    bare.set_milliseconds(one_state());
    Samples applying;
    Samples setting;
    for (int round = 0; round < apply_rounds; ++round) {
        const Switch_State& state = round % 2 == 0 ? other_state() : one_state();
        applying.push_back(apply_milliseconds(on_line, state));
        setting.push_back(bare.set_milliseconds(state));
    }
    return {ratio_row("a whole report applied to all pages, " + model,
                      "the same widgets set directly", applying, setting, "ms", std::nullopt)};
}

} // namespace

Rows measure_report_apply() {
    return rows_of_all_models([](const QString& model, auto form) {
        return measure_apply_to<typename decltype(form)::type>(model);
    });
}

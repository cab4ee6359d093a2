// SPDX-License-Identifier: MIT

#include "tests/support/window_fixture.h"

#include "sim/port_list.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"

#include <QTableWidget>

namespace {

constexpr char marker[] = "//marker";
/// Nine fixed resolutions and the four custom names.
constexpr int filled_item_count = 13;

} // namespace

Window_Fixture::Window_Fixture(Switch_Model model) : device(model), ports{device.device_name()} {}

Window_Fixture::~Window_Fixture() {
    close();
    list_ports({});
}

void Window_Fixture::open() {
    list_ports(ports);
    main_window = make_window();
    main_window->show();
}

bool Window_Fixture::open_connected() {
    open();
    return wait_connected();
}

bool Window_Fixture::open_filled(const QByteArray& text) {
    open();
    device.send(text);
    const bool filled = wait_filled();
    device.clear_record();
    return filled;
}

bool Window_Fixture::is_connected() const {
    return button("pushButton_Connection_Indicator").styleSheet().contains("green");
}

bool Window_Fixture::is_filled() const { return resolution(4).count() == filled_item_count; }

bool Window_Fixture::wait_connected() const {
    return wait_until([this] { return is_connected(); });
}

bool Window_Fixture::wait_filled() const {
    return wait_until([this] { return is_filled(); }, 10'000);
}

QString Window_Fixture::terminal_text() const { return terminal().toPlainText(); }

QPushButton& Window_Fixture::button(const QString& name) const {
    return find_child<QPushButton>(window(), name);
}

QComboBox& Window_Fixture::combo(const QString& name) const {
    return find_child<QComboBox>(window(), name);
}

QLineEdit& Window_Fixture::line_edit(const QString& name) const {
    return find_child<QLineEdit>(window(), name);
}

QLabel& Window_Fixture::label(const QString& name) const {
    return find_child<QLabel>(window(), name);
}

QTextEdit& Window_Fixture::terminal() const {
    return find_child<QTextEdit>(window(), "textEdit_Main_Terminal");
}

QComboBox& Window_Fixture::resolution(int channel) const {
    return combo("comboBox_mouse_movement_resolution_setting_" + QString::number(channel));
}

QList<int> Window_Fixture::layout_positions() const {
    const auto& table = find_child<QTableWidget>(window(), "tableWidget");
    QList<int> positions = {0, 0, 0, 0};
    for (int cell = 0; cell < table.rowCount() * table.columnCount(); ++cell) {
        const QTableWidgetItem* item =
            table.item(cell / table.columnCount(), cell % table.columnCount());
        for (int channel = 0; item != nullptr && channel < positions.size(); ++channel) {
            if (item->text().startsWith("Channel " + QString::number(channel + 1))) {
                positions[channel] = cell + 1;
            }
        }
    }
    return positions;
}

bool Window_Fixture::run_slot(const char* name) const {
    return QMetaObject::invokeMethod(main_window.get(), name, Qt::DirectConnection);
}

QByteArrayList Window_Fixture::commands() {
    write_command(marker);
    if (!wait_until([this] { return device.received_commands().contains(marker); })) {
        return device.received_commands() + QByteArrayList{"the marker did not arrive"};
    }
    const QByteArrayList all = device.received_commands();
    device.clear_record();
    return all.mid(0, all.indexOf(marker));
}

bool Window_Fixture::say(const QByteArray& text) {
    QString shown = terminal_text() + QString::fromUtf8(text);
    device.send(text);
    return wait_until([&] { return terminal_text() == shown; });
}

// SPDX-License-Identifier: MIT

#include "tests/forms/sample_content.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>

namespace {

struct Sample {
    const char* object;
    const char* text;
};

constexpr Sample labels[] = {
    {"label_current_Ip", "  IP: 192.168.100.100"},
    {"label_name_of_USR", "  Name: USR-TCP232-410s"},
    {"label_Current_Hotkey_Trigger_Data", "Scroll Lock"},
    {"label_Custom_1", "100 100 DESK"},
    {"label_Custom_2", "150 300 WALL"},
    {"label_Custom_3", "500 500 STUDIO LEFT"},
    {"label_Custom_4", "001 500 X"},
    {"label_current_ip", "192.168.100.100"},
    {"label_IP", "192.168.100.100"},
    {"label_message", "Perform factory reset?"},
};

constexpr Sample buttons[] = {{"pushButton_OK", "Confirm"}, {"pushButton_Cancel", "Cancel"}};

constexpr Sample line_edits[] = {
    {"lineEdit_MouseParking_x", "100"},
    {"lineEdit_MouseParking_y", "50"},
    {"lineEdit_Mouse_Movement_Name", "DESK"},
    {"lineEdit_Mouse_Movement_X", "100"},
    {"lineEdit_Mouse_Movement_Y", "100"},
    {"lineEdit_Mouse_Movement_Name_2", "DESK"},
    {"lineEdit_Mouse_Movement_X_2", "100"},
    {"lineEdit_Mouse_Movement_Y_2", "100"},
    {"lineEdit_username", "admin"},
    {"lineEdit_IPv4_Address", "192.168.100.100"},
    {"lineEdit_Subnet_Mask", "255.255.255.255"},
    {"lineEdit_Default_Gateway", "192.168.100.254"},
};

constexpr Sample combo_boxes[] = {
    {"comboBox_SelectPort", "ttyUSB0"},
    {"comboBox", "192.168.100.100   OSTREL"},
};

template <typename Widget, std::size_t count>
void set_texts(const QWidget& form, const Sample (&samples)[count]) {
    for (const Sample& sample : samples) {
        if (auto* widget = form.findChild<Widget*>(sample.object)) {
            widget->setText(sample.text);
        }
    }
}

void style_page_buttons(const QWidget& form) {
    const QString active = "background-color: rgb(77, 156, 238); "
                           "border: 2.5px solid rgb(189, 189, 189); border-radius: 10px";
    const QString idle = "QPushButton {background-color: rgb(189, 189, 189);"
                         "border: 2.5px solid rgb(77, 156, 238);border-radius: 10px;}";
    for (const char* name :
         {"ConfigurationBtn", "pushButton_Mouse_Speed_Settings", "TopologyAndDisplayBtn"}) {
        if (auto* button = form.findChild<QPushButton*>(name)) {
            button->setStyleSheet(button->objectName() == "ConfigurationBtn" ? active : idle);
        }
    }
}

void style_indicator(const QWidget& form) {
    if (auto* indicator = form.findChild<QPushButton*>("pushButton_Connection_Indicator")) {
        indicator->setStyleSheet(
            "background-color: green; border-radius: 10px; height: 20px; width: 20px;");
    }
    auto* refresh = form.findChild<QPushButton*>("pushButton_Refresh");
    if (refresh && refresh->text().isEmpty()) {
        refresh->setIconSize({25, 25});
        refresh->setIcon(QIcon(":/img/logos/refresh.png"));
    }
}

void fill_grid(const QWidget& form) {
    auto* grid = form.findChild<QTableWidget*>("tableWidget");
    if (!grid) {
        return;
    }
    grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const Qt::GlobalColor colours[] = {Qt::yellow, Qt::green, Qt::blue, Qt::red};
    for (int column = 0; column < 4; ++column) {
        auto* tile = new QTableWidgetItem(QString("Channel %1").arg(column + 1));
        tile->setBackground(colours[column]);
        tile->setTextAlignment(Qt::AlignCenter);
        tile->setFont(QFont("Arial", 18, QFont::Bold));
        grid->setItem(0, column, tile);
    }
}

} // namespace

void fill_with_samples(QWidget& form) {
    set_texts<QLabel>(form, labels);
    set_texts<QLineEdit>(form, line_edits);
    set_texts<QPushButton>(form, buttons);
    for (const Sample& sample : combo_boxes) {
        if (auto* box = form.findChild<QComboBox*>(sample.object)) {
            box->addItem(sample.text);
        }
    }
    if (auto* terminal = form.findChild<QTextEdit*>("textEdit_Main_Terminal")) {
        terminal->setPlainText(
            "Velmoran KM switch\nCurrent KM Control: 1\nCurrent USB Control 1\n");
    }
    style_page_buttons(form);
    style_indicator(form);
    fill_grid(form);
}

// SPDX-License-Identifier: MIT

// The reference for a start: a dialog with the widgets of the model dialog, and nothing else.

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QDialog dialog;
    auto* column = new QVBoxLayout(&dialog);
    for (const char* text : {"Select KM Type", "Select the KM model to be discovered"}) {
        column->addWidget(new QLabel(text));
    }
    auto* models = new QHBoxLayout;
    for (const char* text : {"Lite", "Plus", "Pro"}) {
        models->addWidget(new QRadioButton(text));
    }
    column->addLayout(models);
    column->addWidget(new QPushButton("Continue"));
    dialog.setFixedSize(405, 170);
    dialog.exec();
    return QApplication::exec();
}

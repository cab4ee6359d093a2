// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

/// Answers the file dialog and the message box of a save or a load at once, and records when each
/// appeared and closed, so that the time between them can be measured.
class Dialog_Watch : public QObject {
    Q_OBJECT

public:
    /// Watches all widgets of the program from now on.
    Dialog_Watch();

    /// Sets the file that the next file dialog chooses. Clears what was recorded.
    void choose(const QString& path);

    /// When the file dialog was closed, including its own clean-up; 0 before.
    [[nodiscard]] qint64 file_dialog_gone_ns() const { return gone_ns; }
    /// When the creation of the message box began; 0 before.
    [[nodiscard]] qint64 box_made_ns() const { return box_ns; }
    [[nodiscard]] bool box_answered() const { return answered; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString chosen_path;
    qint64 gone_ns = 0;
    qint64 box_ns = 0;
    bool answered = false;
};

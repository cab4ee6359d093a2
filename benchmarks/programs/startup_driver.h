// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QMainWindow>
#include <QObject>

#include <functional>

/// Answers the dialogs of a start the moment they are on screen, as a very quick user would, and
/// measures the time from the model dialog's Continue to the main window on screen.
///
/// The time in which the dialog for the connection method waits on screen does not count.
class Startup_Driver : public QObject {
    Q_OBJECT

public:
    using Arrival = std::function<void(const Startup_Driver& driver, QMainWindow& window)>;

    /// @param chosen_model caption of the model's radio button: "Lite", "Plus", "Pro".
    /// @param arrived called once, when the main window is on screen.
    Startup_Driver(const QString& chosen_model, Arrival arrived);

    [[nodiscard]] double milliseconds_to_window() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void see_flush(void* window);
    void see_on_screen(QWidget& widget);
    void answer_model_dialog(const QDialog& dialog);
    void answer_method_dialog(const QDialog& dialog);

    QString model;
    Arrival arrived_at;
    bool model_answered = false;
    bool method_answered = false;
    bool has_arrived = false;
    qint64 begin_ns = 0;
    qint64 end_ns = 0;
    qint64 method_shown_ns = 0;
    qint64 method_answered_ns = 0;
};

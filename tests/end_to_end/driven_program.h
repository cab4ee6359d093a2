// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/program_run.h"

#include <QString>
#include <QStringList>

/// The environment of a driven program.
enum class Port_List { answers, throws };

/// The real program without a display, and a responder inside it that executes commands;
/// modal_responder.h lists them.
class Driven_Program {
public:
    /// @param ports device names of the only serial ports that it sees.
    /// @param environment further variables.
    explicit Driven_Program(const QStringList& ports = {}, Port_List port_list = Port_List::answers,
                            QMap<QString, QString> environment = {});

    /// Answers the next modal window, or the one that is open.
    void answer(const QString& actions);
    /// Chooses "LITE", "PLUS" or "PRO" in the model dialog and continues.
    void choose_model(const QString& model);
    void close_window();
    void ask_for_fonts();
    /// Sets another application font, "DejaVu Sans" at 12 points, as some desktop themes do.
    void set_theme_font();

    /// Waits for a line that begins with this text.
    [[nodiscard]] bool wait_for(const QString& beginning);
    [[nodiscard]] bool wait_for_end(int milliseconds = 20'000) {
        return run.wait_for_end(milliseconds);
    }

    /// Everything that the responder has printed so far.
    QStringList lines();

    std::optional<int> exit_status() const { return run.exit_status(); }
    std::optional<int> ending_signal() const { return run.ending_signal(); }
    const QByteArray& errors() { return run.errors(); }

private:
    Program_Run run;
};

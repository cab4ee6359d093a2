// SPDX-License-Identifier: MIT

#pragma once

#include "benchmarks/models.h"
#include "benchmarks/pty_line.h"
#include "sim/switch_state.h"

#include <QByteArray>
#include <QMainWindow>

#include <functional>
#include <memory>

/// Two states that differ in every setting, so that each report after the other changes all pages.
const Switch_State& one_state();
const Switch_State& other_state();

/// The real window of a model on screen, on a line whose other end belongs to the benchmark. A Plus
/// or Pro has followed the serial path.
class Window_On_Line {
public:
    /// Returns when the window is on screen.
    explicit Window_On_Line(const QString& model_name);

    [[nodiscard]] const Pty_Line& line() const { return pty; }
    [[nodiscard]] QMainWindow& window() const { return *main_window; }
    /// The answers to all questions of a start in one text.
    [[nodiscard]] QByteArray report(const Switch_State& state) const;

    /// Calls one of the window's slots, as its signal does.
    void call(const char* slot) const;

    /// Requests the report, without the wait that reads it.
    void ask_for_report() const { send_first_question(); }

    /// Refreshes, answers with the state's report and returns when it fills the pages.
    void fill_pages(const Switch_State& state) const;

    /// Whether the pages show the state; each of the two has its own hotkey.
    [[nodiscard]] bool shows(const Switch_State& state) const;

private:
    template <class Window>
    void make_window();

    QString model;
    Pty_Line pty;
    std::unique_ptr<QMainWindow> main_window;
    std::function<void()> send_first_question;
};

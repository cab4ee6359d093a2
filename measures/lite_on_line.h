#pragma once

#include "measures/pty_line.h"
#include "sim/switch_state.h"
#include "windows/halvern_velmoran_lite.h"

#include <QByteArray>

#include <memory>

/// The answers to "//rl", "//??" and "//BP" in one text.
QByteArray whole_report(const Switch_State& state);

/// Two states that differ in every setting, so that each report after the other changes all pages.
const Switch_State& one_state();
const Switch_State& other_state();

/// The real Lite window on screen, on a line whose other end is the measurement's.
class Lite_On_Line {
public:
    /// Returns when the window is on screen.
    Lite_On_Line();

    [[nodiscard]] const Pty_Line& line() const { return pty; }
    [[nodiscard]] Halvern_Velmoran_LITE& window() const { return *lite; }

    /// Runs one of the window's slots, as its signal does.
    void call(const char* slot) const;

    /// Refreshes, answers with the state's report and returns when it fills the pages.
    void fill_pages(const Switch_State& state) const;

    /// Whether the pages show the state; each of the two has its own hotkey.
    [[nodiscard]] bool shows(const Switch_State& state) const;

private:
    Pty_Line pty;
    std::unique_ptr<Halvern_Velmoran_LITE> lite;
};

// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>

/// Where the tool does not catch an exception on purpose, and which one: computed here from the
/// input alone, without the tool's own readers, so that such an end can be distinguished from a
/// crash.

/// An exception's exact type and text.
struct Stated_End {
    const std::type_info* type;
    std::string text;
};

/// Runs a step in place of the event loop. It must throw the expected exception and no other; any
/// other goes on to the fuzzer, which reports it as a finding.
/// @return whether the process would have ended here.
bool ends_as_stated(const std::optional<Stated_End>& stated, const std::function<void()>& step);

/// Reports a finding of the fuzzer itself.
[[noreturn]] void report_finding(const std::string& what);
/// Reports a finding unless the condition holds.
void expect(bool holds, const char* what);

/// What reading a layout text throws: a key without two characters after it, or two characters
/// that are no number.
/// @param forgives_bad_numbers as the model does, which takes the first cell instead.
[[nodiscard]] std::optional<Stated_End> layout_end(const std::string& layout_text,
                                                   bool forgives_bad_numbers);

/// What applying a status report throws, in the order in which it is read.
[[nodiscard]] std::optional<Stated_End> status_end(const std::string& report);

/// What a save throws while this is the last status report.
[[nodiscard]] std::optional<Stated_End> save_end(const std::string& report);

/// A chunk's text as the tool reads it: UTF-8 up to the first NUL.
[[nodiscard]] std::string text_of_chunk(const QByteArray& chunk);

/// The text after a key up to the line feed; empty if the key is missing.
[[nodiscard]] std::string value_behind(std::string_view key, const std::string& text);

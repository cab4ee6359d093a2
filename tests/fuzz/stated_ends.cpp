// SPDX-License-Identifier: MIT

#include "tests/fuzz/stated_ends.h"

#include <QString>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

/// The exception that std::stoi() throws for a text, if any.
std::optional<Stated_End> number_end(const std::string& text) {
    try {
        static_cast<void>(std::stoi(text));
    } catch (const std::exception& failure) {
        return Stated_End{&typeid(failure), failure.what()};
    }
    return std::nullopt;
}

/// The exception that std::string::substr() throws, if any: the text ends before the position.
std::optional<Stated_End> cut_end(const std::string& text, std::size_t position) {
    try {
        static_cast<void>(text.substr(position));
    } catch (const std::exception& failure) {
        return Stated_End{&typeid(failure), failure.what()};
    }
    return std::nullopt;
}

std::string value_or_zero(std::string_view key, const std::string& text) {
    const std::string value = value_behind(key, text);
    return value.empty() ? "0" : value;
}

constexpr std::string_view custom_keys[] = {"C1\t", "C2\t", "C3\t", "C4\t"};

} // namespace

bool ends_as_stated(const std::optional<Stated_End>& stated, const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception& end) {
        if (!stated || typeid(end) != *stated->type || end.what() != stated->text) {
            std::fprintf(stderr, "FINDING: an exception that nothing states: %s\n", end.what());
            throw;
        }
        return true;
    }
    if (stated) {
        report_finding("the stated end did not come: " + stated->text);
    }
    return false;
}

void report_finding(const std::string& what) {
    std::fprintf(stderr, "FINDING: %s\n", what.c_str());
    std::abort();
}

void expect(bool holds, const char* what) {
    if (!holds) {
        report_finding(what);
    }
}

std::optional<Stated_End> layout_end(const std::string& layout_text, bool forgives_bad_numbers) {
    for (const std::string_view key : {"04B", "03B", "02B", "01B"}) {
        std::string position = value_behind(key, layout_text).substr(0, 2);
        if (!layout_text.empty() && position.size() < 2) {
            return Stated_End{&typeid(std::out_of_range),
                              "no grid position behind " + std::string(key)};
        }
        if (!position.empty() && position.front() == '0') {
            position.erase(0, 1);
        }
        const std::optional<Stated_End> end = number_end(position);
        if (end && !forgives_bad_numbers) {
            return end;
        }
    }
    return std::nullopt;
}

std::optional<Stated_End> status_end(const std::string& report) {
    constexpr std::size_t columns = 8;
    if (report.empty()) {
        return std::nullopt;
    }
    if (auto end = number_end(value_or_zero("KM Port Limit: ", report))) {
        return end;
    }
    for (const std::string_view key : custom_keys) {
        if (value_behind(key, report).size() < columns) {
            return Stated_End{&typeid(std::out_of_range),
                              "no custom entry behind " + std::string(key)};
        }
    }
    const std::string_view resolutions = "Channels resolution:";
    const std::size_t found = report.find(resolutions);
    if (found == std::string::npos || found + resolutions.size() == report.size()) {
        return Stated_End{&typeid(std::out_of_range),
                          "no resolutions behind " + std::string(resolutions)};
    }
    // Eight bytes may be fewer characters.
    if (QString::fromStdString(value_behind(custom_keys[0], report)).size() < qsizetype{columns}) {
        return Stated_End{&typeid(std::out_of_range),
                          "the custom entry is shorter than its columns"};
    }
    return std::nullopt;
}

std::optional<Stated_End> save_end(const std::string& report) {
    constexpr std::size_t y_column = 4;
    if (report.empty()) {
        return std::nullopt;
    }
    for (const std::string_view key : custom_keys) {
        if (auto end = cut_end(value_or_zero(key, report), y_column)) {
            return end;
        }
    }
    return std::nullopt;
}

std::string text_of_chunk(const QByteArray& chunk) {
    return QString::fromUtf8(chunk.constData()).toStdString();
}

std::string value_behind(std::string_view key, const std::string& text) {
    const std::size_t found = text.find(key);
    if (found == std::string::npos) {
        return {};
    }
    const std::size_t begin = found + key.size();
    return text.substr(begin, std::min(text.find('\n', begin), text.size()) - begin);
}

// SPDX-License-Identifier: MIT

// Cells of the grid in reports, commands and files.
// Input: the text.

#include "pages/setting_values.h"
#include "tests/fuzz/stated_ends.h"

#include <stdexcept>

namespace {

/// Numbers of a file and of a report: only the conversion's own two exceptions may be thrown.
template <class Step>
void with_number_failures(const Step& step) {
    try {
        step();
    } catch (const std::logic_error& failure) {
        const bool is_known = typeid(failure) == typeid(std::invalid_argument) ||
                              typeid(failure) == typeid(std::out_of_range);
        expect(is_known && std::string_view(failure.what()) == "stoi", "another exception");
    }
}

void check_grid(const std::string& text) {
    with_number_failures([&] {
        const Layout_Item item = parse_coordinates("Coordinates channel 1: ", text);
        if (is_on_grid(item)) {
            expect(coordinates_text(item).size() == 3, "another text of a cell");
        }
    });
    with_number_failures([&] {
        const Layout_Item item = position_to_layout_item(text.substr(0, 2));
        if (is_on_grid(item)) {
            const std::string number = grid_position_number(item).toStdString();
            const Layout_Item again = position_to_layout_item(number);
            expect(again.row == item.row && again.column == item.column,
                   "a cell does not come back");
        }
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_grid(text);
    return 0;
}

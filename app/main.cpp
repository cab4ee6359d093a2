// SPDX-License-Identifier: MIT

#include "app/make_main_window.h"
#include "app/screen_fit.h"
#include "app/start_up.h"
#include "app/text_font.h"

#include <QApplication>
#include <QMainWindow>

#include <exception>
#include <optional>
#include <utility>
#include <vector>

int main(int argc, char* argv[]) {
    std::exception_ptr construction_failure;
    int exit_status = 0;
    {
        // An application object removes its own arguments; a second one needs them, too.
        std::vector<char*> arguments(argv, argv + argc + 1);
        int argument_count = argc;
        std::optional<QApplication> application(std::in_place, argument_count, arguments.data());
        if (scale_down_to_screen()) {
            application.reset();
            application.emplace(argc, argv);
        }
        keep_start_quiet();
        use_text_family(find_text_family());
        keep_text_font();
        set_light_palette();
        refuse_proxies();
        exit_status = run_tool(make_main_window, construction_failure);
    }
    if (construction_failure) {
        std::rethrow_exception(construction_failure);
    }
    return exit_status;
}

// SPDX-License-Identifier: MIT

// The cost of one chunk in the terminal pane: inserting, both scrolls, and painting what has
// changed, with little and with much text shown already.

#include "benchmarks/flush_hook.h"
#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "pages/terminal_view.h"
#include "tests/support/wait_until.h"
#include "ui_corvane_lite_ui.h"
#include "windows/form.h"

#include <QEventLoop>
#include <QMainWindow>
#include <QTextEdit>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <functional>

namespace {

constexpr qsizetype kilobyte = 1024;
constexpr int terminal_page = 0;
const QString parking_line = "Current parking location: X=50 Y=50 of this channel\n";

bool painted = false;

/// A window with the Lite's form, whose terminal shows a text already. The slot of the second
/// scroll does nothing here: the benchmark itself scrolls, so that this is measured.
class Terminal_Window : public QMainWindow {
    Q_OBJECT

public:
    explicit Terminal_Window(const QString& text) {
        setFixedSize(1305, 693);
        form->stackedWidget->setCurrentIndex(terminal_page);
        show();
        terminal().setPlainText(text);
        view.scroll_Cursor_to_the_end();
        if (!wait_until([this] { return windowHandle()->isExposed(); })) {
            throw Measurement_Failed("the window does not come on screen");
        }
        settle();
    }

    QTextEdit& terminal() { return *form->textEdit_Main_Terminal; }

    double milliseconds_of(const std::function<void()>& add) {
        settle();
        painted = false;
        flush_observer = [](void*) { painted = true; };
        const qint64 begin = now_ns();
        add();
        QCoreApplication::processEvents();
        view.scroll_Cursor_to_the_end();
        QCoreApplication::processEvents();
        const qint64 end = now_ns();
        flush_observer = nullptr;
        if (!painted) {
            throw Measurement_Failed("the chunk was not painted");
        }
        return milliseconds_between(begin, end);
    }

    double append_milliseconds() {
        return milliseconds_of([this] { view.append(parking_line); });
    }

    double rewrite_milliseconds() {
        return milliseconds_of([this] {
            terminal().setPlainText(terminal().toPlainText() + parking_line);
            view.scroll_Cursor_to_the_end();
        });
    }

public slots:
    void scroll_Cursor_to_the_end() {}

private:
    /// Waits until late layouts and repaints of other windows are done.
    static void settle() {
        constexpr std::chrono::milliseconds settling_time{20};
        QEventLoop loop;
        QTimer::singleShot(settling_time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    std::unique_ptr<Ui::Corvane_LITE_UI> form = build_form<Ui::Corvane_LITE_UI>(*this);
    Terminal_View view{*form->textEdit_Main_Terminal, *this};
};

QString text_of(qsizetype size) { return parking_line.repeated(size / parking_line.size()); }

Rows measure_growth() {
    constexpr int rounds = 51;
    Terminal_Window small(text_of(kilobyte));
    Terminal_Window middle(text_of(100 * kilobyte));
    Terminal_Window big(text_of(kilobyte * kilobyte));
    Samples on_small;
    Samples on_middle;
    Samples on_big;
    for (int round = 0; round < rounds; ++round) {
        small.terminal().setPlainText(text_of(kilobyte));
        on_small.push_back(small.append_milliseconds());
        on_middle.push_back(middle.append_milliseconds());
        on_big.push_back(big.append_milliseconds());
    }
    const QString against = "a chunk with 1 KB shown";
    return {ratio_row("a chunk with 100 KB shown", against, on_middle, on_small, "ms", 2.0),
            ratio_row("a chunk with 1 MB shown", against, on_big, on_small, "ms", 2.0)};
}

Rows measure_rewriting() {
    constexpr int rounds = 9;
    Terminal_Window big(text_of(kilobyte * kilobyte));
    Terminal_Window rewritten(text_of(kilobyte * kilobyte));
    Samples appending;
    Samples rewriting;
    for (int round = 0; round < rounds; ++round) {
        appending.push_back(big.append_milliseconds());
        rewriting.push_back(rewritten.rewrite_milliseconds());
    }
    return {ratio_row("a chunk with 1 MB shown", "rewriting the whole text", appending, rewriting,
                      "ms", 1.0 / 50)};
}

Rows measure_endless_line() {
    constexpr int rounds = 5;
    QString endless = text_of(kilobyte * kilobyte);
    endless.replace('\n', ' ');
    Terminal_Window window(endless);
    Terminal_Window small(text_of(kilobyte));
    Samples on_endless;
    Samples on_small;
    for (int round = 0; round < rounds; ++round) {
        window.terminal().setPlainText(endless);
        on_endless.push_back(window.append_milliseconds());
        on_small.push_back(small.append_milliseconds());
    }
    return {ratio_row("a chunk behind 1 MB in one line without an end", "a chunk with 1 KB shown",
                      on_endless, on_small, "ms", std::nullopt)};
}

} // namespace

Rows measure_terminal() { return measure_growth() + measure_rewriting() + measure_endless_line(); }

#include "measure_terminal.moc"

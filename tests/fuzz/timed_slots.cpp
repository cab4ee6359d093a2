// SPDX-License-Identifier: MIT

#include "tests/fuzz/timed_slots.h"

#include "pages/model_traits.h"
#include "tests/fuzz/fake_timers.h"
#include "tests/fuzz/stated_ends.h"

void pass_time(Fuzz_Window& window, int milliseconds, bool& ended) {
    fake_timers::pass(milliseconds, [&](QObject& receiver, const QByteArray& slot) {
        if (ended) {
            return;
        }
        std::optional<Stated_End> stated;
        if (slot == "set_current_layout_from_buff") {
            stated = layout_end(window.controller().session.state.received_buff.toStdString(),
                                &window.model() == &plus_model);
        }
        const bool ends = ends_as_stated(stated, [&] {
            expect(QMetaObject::invokeMethod(&receiver, slot.constData(), Qt::DirectConnection),
                   "a timer calls a slot that is not there");
        });
        ended = ended || ends;
    });
}

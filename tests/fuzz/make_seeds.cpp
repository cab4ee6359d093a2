// SPDX-License-Identifier: MIT

// make_seeds FOLDER
//
// Writes the first seeds of the fuzzers into FOLDER, one folder for each: what the simulated units
// answer to the questions of a start, to settings, and to a new layout.

#include "sim/adapter_logic.h"
#include "sim/switch_logic.h"
#include "sim/switch_report.h"
#include "tests/support/sample_units.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

// The input format of the reply fuzzers.
constexpr char cut = 0x1C;
constexpr char pause = 0x1D;
constexpr char refresh = 0x1E;
constexpr char submit = 0x1F;

class Seed_Folder {
public:
    explicit Seed_Folder(const QString& path) : folder(path) {}

    void write(const QString& target, const QString& name, const QByteArray& content) const {
        QFile file(folder.filePath(target + "/" + name));
        if (!folder.mkpath(target) || !file.open(QIODevice::WriteOnly) ||
            file.write(content) != content.size()) {
            qFatal("%s can't be written", qPrintable(file.fileName()));
        }
    }

private:
    QDir folder;
};

QByteArray answers(Switch_Logic& unit, const QByteArrayList& commands, const QByteArray& between) {
    QByteArray all;
    for (const QByteArray& command : commands) {
        all += unit.answer(command) + between;
    }
    return all;
}

const QByteArrayList questions{"//rl", "//??", "//BP", "//QA"};
const QByteArrayList settings{"//c2",
                              "//u3",
                              "//D4",
                              "//o1",
                              "//km",
                              "//MP 1 99",
                              "//CE 1 13",
                              "//B1",
                              "//nosuch",
                              "//a 1 3",
                              "//MM CC2 7 9 TREE "};
constexpr const char* layout_command = "//FF01B06FF02B07FF03B10FF04B11";

void write_switch_seeds(const Seed_Folder& seeds, int number, Switch_Model model) {
    const QByteArray which = QByteArray::number(number);
    const auto fresh_unit = [model] {
        Switch_Logic unit(model);
        unit.set_state(used_unit());
        return unit;
    };
    Switch_Logic unit = fresh_unit();
    const QByteArray report = answers(unit, questions, {});
    const QByteArray pieces = answers(unit, questions, QByteArray(1, cut));
    seeds.write("status_report", "filled-" + which, which + report);
    seeds.write("serial_replies", "start-" + which, which + report + pause);
    seeds.write("serial_replies", "pieces-" + which, which + pieces + pause + refresh + report);
    // More than the tool keeps of a line's text.
    seeds.write("serial_replies", "long-" + which,
                which + report + cut + report + cut + report + cut + report + pause);
    seeds.write("network_replies", "start-" + which, which + pieces);
    seeds.write("network_replies", "one-" + which, which + report);

    const QByteArray obeyed = answers(unit, settings, QByteArray(1, cut));
    const QByteArray notice = unit.notice_both(2);
    const QByteArray layout = unit.answer(layout_command);
    const QByteArray layout_answer = unit.answer("//BP");
    const QByteArray after = which + pieces + pause;
    seeds.write("serial_replies", "settings-" + which, after + obeyed + notice + pause);
    seeds.write("serial_replies", "layout-" + which,
                after + submit + layout + cut + layout_answer + pause);
    seeds.write("serial_replies", "no-layout-" + which, after + submit + layout + pause);
    seeds.write("serial_replies", "bad-layout-" + which,
                after + layout + cut + layout_answer.left(layout_answer.size() / 2) + pause +
                    report);
    seeds.write("network_replies", "settings-" + which, which + pieces + obeyed + notice);
    seeds.write("network_replies", "layout-" + which,
                which + pieces + submit + layout + cut + layout_answer);
    seeds.write("network_replies", "bad-layout-" + which, which + pieces + layout + cut + "KM\n");
}

void write_adapter_seeds(const Seed_Folder& seeds) {
    const auto datagram = [](const QByteArray& bytes) {
        // Values from 200 on count tens of bytes, so 226 is the size of a configuration.
        const int size = static_cast<int>(bytes.size());
        return QByteArray(1, static_cast<char>(size < 200 ? size : 200 + size / 10)) + bytes;
    };
    const QByteArray next_group("\xff");
    const QByteArray reply = datagram(Adapter_Logic().search_reply());
    const QByteArray configuration = datagram(Adapter_Logic().login_answer());
    const QByteArray refusal = datagram("\xff\x01\x03\x04");
    for (const char options : {'\0', '\1', '\3'}) {
        const QByteArray first(1, options);
        const QString name = QString::number(options);
        seeds.write("search_replies", "one-" + name, first + reply);
        seeds.write("search_replies", "two-" + name, first + reply + reply + next_group + reply);
        seeds.write("search_replies", "wrong-" + name,
                    first + datagram("abc") + reply + next_group + reply);
        seeds.write("search_replies", "late-" + name, first + next_group + reply);
    }
    for (const char options : {'\0', '\1', '\2', '\x1c'}) {
        const QByteArray first(1, options);
        const QString name = QString::number(options);
        const QByteArray searched = options == '\1' ? reply + next_group : QByteArray();
        seeds.write("login_answers", "taken-" + name, first + searched + configuration);
        seeds.write("login_answers", "refused-" + name, first + searched + refusal);
        seeds.write("login_answers", "late-" + name,
                    first + searched + next_group + searched + configuration);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "make_seeds FOLDER\n");
        return 2;
    }
    const Seed_Folder seeds(argv[1]);
    write_switch_seeds(seeds, 0, Switch_Model::lite);
    write_switch_seeds(seeds, 1, Switch_Model::plus);
    write_switch_seeds(seeds, 2, Switch_Model::pro);
    write_adapter_seeds(seeds);
    return 0;
}

// SPDX-License-Identifier: MIT

#include "link/audio_state.h"

#include <QTest>

/// The audio routing of a Pro as a command, as a file's text, and read from a text.
class Test_Audio_State : public QObject {
    Q_OBJECT

private slots:
    void a_state_has_its_command_and_its_text_data();
    void a_state_has_its_command_and_its_text();
    void a_text_is_read_as_a_state_data();
    void a_text_is_read_as_a_state();
    void a_text_without_content_gives_no_state();
    void an_unknown_text_clears_the_state_and_is_not_recognised();
    void the_text_of_a_state_reads_back_as_that_state();
};

namespace {

Audio_State channels(const std::vector<std::size_t>& numbers) {
    Audio_State state;
    for (const std::size_t number : numbers) {
        state.channels[number - 1] = true;
    }
    return state;
}

Audio_State all(Audio_State state = {}) {
    state.all = true;
    return state;
}

Audio_State follow(Audio_State state = {}) {
    state.follow = true;
    return state;
}

} // namespace

Q_DECLARE_METATYPE(Audio_State)

void Test_Audio_State::a_state_has_its_command_and_its_text_data() {
    QTest::addColumn<Audio_State>("state");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("text");
    QTest::newRow("all") << all() << "//a 0"
                         << "ALL";
    QTest::newRow("follow") << follow() << "//a f"
                            << "FOLLOW";
    QTest::newRow("one channel") << channels({2}) << "//a 2"
                                 << "2";
    QTest::newRow("two channels") << channels({1, 3}) << "//a 1 3"
                                  << "13";
    QTest::newRow("two others") << channels({2, 4}) << "//a 2 4"
                                << "24";
    QTest::newRow("four channels") << channels({1, 2, 3, 4}) << "//a 1 2 3 4"
                                   << "1234";
    QTest::newRow("none") << channels({}) << "//a x"
                          << "//a x";
    QTest::newRow("all wins over follow") << all(follow()) << "//a 0"
                                          << "ALL";
    QTest::newRow("all wins over channels") << all(channels({1})) << "//a 0"
                                            << "ALL";
    QTest::newRow("follow wins over channels") << follow(channels({1})) << "//a f"
                                               << "FOLLOW";
}

void Test_Audio_State::a_state_has_its_command_and_its_text() {
    QFETCH(Audio_State, state);
    QFETCH(QString, command);
    QFETCH(QString, text);
    QCOMPARE(audio_command(state), command);
    QCOMPARE(audio_state_text(state), text);
}

void Test_Audio_State::a_text_is_read_as_a_state_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<Audio_State>("state");
    QTest::newRow("0") << "0" << all();
    QTest::newRow("0 and more") << "0123F" << all();
    QTest::newRow("blank 0") << "  0\n" << all();
    QTest::newRow("ALL") << "ALL" << all();
    QTest::newRow("A L L") << "A L L" << all();
    QTest::newRow("F") << "F" << follow();
    QTest::newRow("F and more") << "F12" << follow();
    QTest::newRow("FOLLOW") << "FOLLOW" << follow();
    QTest::newRow("1F") << "1F" << follow();
    QTest::newRow("1 F") << "1 F" << follow();
    QTest::newRow("13F") << "13F" << follow();
    QTest::newRow("13F2") << "13F2" << follow(channels({2}));
    QTest::newRow("F after another letter") << "XF" << follow();
    QTest::newRow("1F and a line end") << "1F\n" << follow();
    QTest::newRow("1 3") << "1 3" << channels({1, 3});
    QTest::newRow("4 2 order") << "4 2" << channels({2, 4});
    QTest::newRow("all digits") << "1234" << channels({1, 2, 3, 4});
    QTest::newRow("digits beyond the channels") << "57819" << channels({1});
    QTest::newRow("digits of later lines") << "2\nDone 3\n" << channels({2, 3});
    QTest::newRow("an inner 0") << "1 0" << channels({1});
}

void Test_Audio_State::a_text_is_read_as_a_state() {
    QFETCH(QString, text);
    QFETCH(Audio_State, state);
    const Audio_Reading reading = read_audio_state(text.toStdString());
    QVERIFY(reading.recognised);
    QVERIFY(reading.state.has_value());
    QCOMPARE(reading.state->all, state.all);
    QCOMPARE(reading.state->follow, state.follow);
    QVERIFY(reading.state->channels == state.channels);
}

void Test_Audio_State::a_text_without_content_gives_no_state() {
    for (const char* text : {"", " ", "    "}) {
        const Audio_Reading reading = read_audio_state(text);
        QVERIFY(!reading.recognised);
        QVERIFY(!reading.state.has_value());
    }
}

void Test_Audio_State::an_unknown_text_clears_the_state_and_is_not_recognised() {
    for (const char* text : {"x", "all", "//a x", "\n", "follow", "5 6"}) {
        const Audio_Reading reading = read_audio_state(text);
        QVERIFY2(!reading.recognised, text);
        QVERIFY2(reading.state == Audio_State(), text);
    }
}

void Test_Audio_State::the_text_of_a_state_reads_back_as_that_state() {
    for (const Audio_State& state : {all(), follow(), channels({1}), channels({2, 3, 4})}) {
        const Audio_Reading reading = read_audio_state(audio_state_text(state).toStdString());
        QVERIFY(reading.state == state);
    }
    // No channel is written as a command, which clears the panel on reading.
    QVERIFY(read_audio_state(audio_state_text({}).toStdString()).state == Audio_State());
}

QTEST_GUILESS_MAIN(Test_Audio_State)

#include "test_audio_state.moc"

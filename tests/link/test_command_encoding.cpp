// SPDX-License-Identifier: MIT

#include "link/command_encoding.h"
#include "tests/link/failing_allocation.h"

#include <QTest>

/// From the text of a command to its bytes, and what each step does when it fails.
class Test_Command_Encoding : public QObject {
    Q_OBJECT

private slots:
    void init();

    void a_command_becomes_its_bytes_and_a_carriage_return_data();
    void a_command_becomes_its_bytes_and_a_carriage_return();
    void every_byte_passes_unchanged();
    void a_long_command_passes_unchanged();
    void the_callers_text_gets_the_carriage_return();
    void a_qstring_travels_as_utf8();
    void the_callers_qstring_gets_the_carriage_return();
    void hex_digits_are_two_lower_case_digits_for_each_unsigned_byte_data();
    void hex_digits_are_two_lower_case_digits_for_each_unsigned_byte();
    void a_failed_hex_step_is_reported_and_hands_on_an_empty_text();
    void a_failed_hex_step_leaves_the_byte_step_with_nothing();
    void a_failed_byte_step_is_reported_and_gives_no_bytes();
    void a_failed_conversion_of_a_qstring_is_reported_alike();
    void after_a_failure_the_next_command_passes();

private:
    QStringList reports;
    const Command_Encoder encoder{
        [this](const std::string& text) { reports.append(QString::fromStdString(text)); }};
};

namespace {

constexpr std::size_t command_length = 100'000;

/// A long command with spare capacity for its carriage return, so that appending it allocates
/// nothing.
std::string roomy_command() {
    std::string command;
    command.reserve(command_length + 1);
    command.assign(command_length, 'x');
    return command;
}

/// A long command without spare capacity.
std::string tight_command() {
    std::string command(command_length, 'x');
    command.resize(command.capacity(), 'x');
    return command;
}

} // namespace

void Test_Command_Encoding::init() { reports.clear(); }

void Test_Command_Encoding::a_command_becomes_its_bytes_and_a_carriage_return_data() {
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("hex");
    QTest::newRow("status query") << QByteArray("//rl") << QByteArray("2f2f726c0d");
    QTest::newRow("information query") << QByteArray("//??") << QByteArray("2f2f3f3f0d");
    QTest::newRow("empty") << QByteArray("") << QByteArray("0d");
    QTest::newRow("above 0x7F") << QByteArray("\xE2\x82\xAC\xFF") << QByteArray("e282acff0d");
    QTest::newRow("NUL inside") << QByteArray("a\0b", 3) << QByteArray("6100620d");
    QTest::newRow("ends in a return already") << QByteArray("//R\r") << QByteArray("2f2f520d0d");
}

void Test_Command_Encoding::a_command_becomes_its_bytes_and_a_carriage_return() {
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, hex);
    std::string text = command.toStdString();
    QCOMPARE(encoder.string_to_bytes(text).toHex(), hex);
    QCOMPARE(reports, QStringList());
}

void Test_Command_Encoding::every_byte_passes_unchanged() {
    std::string text;
    for (int byte = 0; byte <= 0xFF; ++byte) {
        text += static_cast<char>(byte);
    }
    const QByteArray expected = QByteArray::fromStdString(text) + '\r';
    QCOMPARE(encoder.string_to_bytes(text), expected);
}

void Test_Command_Encoding::a_long_command_passes_unchanged() {
    std::string text = roomy_command();
    const QByteArray bytes = encoder.string_to_bytes(text);
    QCOMPARE(bytes.size(), static_cast<qsizetype>(command_length + 1));
    QCOMPARE(bytes.count('x'), static_cast<qsizetype>(command_length));
    QVERIFY(bytes.endsWith('\r'));
}

void Test_Command_Encoding::the_callers_text_gets_the_carriage_return() {
    std::string text = "//BP";
    encoder.string_to_bytes(text);
    QCOMPARE(text, "//BP\r");
    QCOMPARE(encoder.string_to_bytes(text), "//BP\r\r");
}

void Test_Command_Encoding::a_qstring_travels_as_utf8() {
    QString text = QString::fromUtf8("//MM CC1 1 2 Grün€😀");
    QCOMPARE(encoder.qstring_to_bytes(text),
             "//MM CC1 1 2 Gr\xC3\xBCn\xE2\x82\xAC\xF0\x9F\x98\x80\r");
    QString empty;
    QCOMPARE(encoder.qstring_to_bytes(empty), "\r");
}

void Test_Command_Encoding::the_callers_qstring_gets_the_carriage_return() {
    QString text = "//FF01B01";
    encoder.qstring_to_bytes(text);
    QCOMPARE(text, "//FF01B01\r");
}

void Test_Command_Encoding::hex_digits_are_two_lower_case_digits_for_each_unsigned_byte_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("return") << QByteArray("\r") << QByteArray("0d");
    QTest::newRow("zero") << QByteArray("\0", 1) << QByteArray("00");
    QTest::newRow("sign bit") << QByteArray("\x80\xE2\xFF") << QByteArray("80e2ff");
    QTest::newRow("command") << QByteArray("//rl") << QByteArray("2f2f726c");
}

void Test_Command_Encoding::hex_digits_are_two_lower_case_digits_for_each_unsigned_byte() {
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, digits);
    QCOMPARE(QByteArray::fromStdString(encoder.string_to_hex(bytes.toStdString())), digits);
}

void Test_Command_Encoding::a_failed_hex_step_is_reported_and_hands_on_an_empty_text() {
    const std::string text = roomy_command();
    std::string digits = "not empty";
    int failed = 0;
    {
        const Failing_Allocation no_memory(command_length);
        digits = encoder.string_to_hex(text);
        failed = no_memory.failed();
    }
    QVERIFY(failed > 0);
    QCOMPARE(reports, QStringList{"Hex converting error"});
    QCOMPARE(digits, "");
}

void Test_Command_Encoding::a_failed_hex_step_leaves_the_byte_step_with_nothing() {
    std::string text = roomy_command();
    QByteArray bytes = "not empty";
    {
        const Failing_Allocation no_memory(command_length);
        bytes = encoder.string_to_bytes(text);
    }
    // The conversion to bytes has not failed: its input was empty.
    QCOMPARE(reports, QStringList{"Hex converting error"});
    QCOMPARE(bytes, "");
}

void Test_Command_Encoding::a_failed_byte_step_is_reported_and_gives_no_bytes() {
    std::string text = tight_command();
    QByteArray bytes = "not empty";
    {
        const Failing_Allocation no_memory(command_length);
        bytes = encoder.string_to_bytes(text);
    }
    QCOMPARE(reports, QStringList{"Bytes converting error"});
    QCOMPARE(bytes, "");
}

void Test_Command_Encoding::a_failed_conversion_of_a_qstring_is_reported_alike() {
    // Its 140,001 digits are collected in a buffer of 262,144 bytes; the newest Qt takes three
    // bytes for each character when it creates a std::string.
    constexpr std::size_t length = 70'000;
#ifdef Q_OS_WIN
    // Only an allocation of the program itself can fail there: the copy of the digits.
    constexpr std::size_t no_room_for_digits = 140'000;
#else
    constexpr std::size_t no_room_for_digits = 230'000;
#endif
    QString text(length, 'x');
    QByteArray bytes = "not empty";
#ifndef Q_OS_WIN
    // Qt's library creates the std::string; on Windows it uses its own operator new.
    {
        const Failing_Allocation no_memory(length);
        bytes = encoder.qstring_to_bytes(text);
    }
    QCOMPARE(reports, QStringList{"Bytes converting error"});
    QCOMPARE(bytes, "");
    reports.clear();
#endif

    {
        // Memory for the text, none for its digits.
        const Failing_Allocation no_memory(no_room_for_digits);
        bytes = encoder.qstring_to_bytes(text);
    }
    QCOMPARE(reports, QStringList{"Hex converting error"});
    QCOMPARE(bytes, "");
}

void Test_Command_Encoding::after_a_failure_the_next_command_passes() {
    std::string long_text = roomy_command();
    {
        const Failing_Allocation no_memory(command_length);
        encoder.string_to_bytes(long_text);
    }
    std::string text = "//rl";
    QCOMPARE(encoder.string_to_bytes(text), "//rl\r");
    QCOMPARE(reports.size(), 1);
}

QTEST_GUILESS_MAIN(Test_Command_Encoding)

#include "test_command_encoding.moc"

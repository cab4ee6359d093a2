#include "tests/usr/packet_capture.h"

#include <QRegularExpression>

namespace {

constexpr int capture_patience_ms = 20'000;

// All but what the tests' clock sends to itself, see tests/support/virtual_time.cpp.
constexpr const char* captured = "udp and not (src host 127.0.0.1 and dst host 127.0.0.1)";

// IP header without options, and UDP header.
constexpr qsizetype header_bytes = 20 + 8;

} // namespace

Packet_Capture::Packet_Capture() {
    tcpdump.setProcessChannelMode(QProcess::MergedChannels);
    // As root of a namespace it can't become another user; each packet is written at once.
    tcpdump.start("tcpdump", {"-Z", "root", "-i", "lo", "-U", "--immediate-mode", "-w",
                              place.filePath("capture"), captured});
    QByteArray said;
    while (!said.contains("listening on")) {
        if (!tcpdump.waitForReadyRead(capture_patience_ms)) {
            qFatal("tcpdump doesn't listen: %s %s", qPrintable(tcpdump.errorString()),
                   said.constData());
        }
        said += tcpdump.readAll();
    }
}

QList<Captured_Datagram> Packet_Capture::finish() {
    tcpdump.terminate();
    tcpdump.waitForFinished(capture_patience_ms);
    QProcess reader;
    reader.start("tcpdump", {"-Z", "root", "-n", "-x", "-r", place.filePath("capture")});
    reader.waitForFinished(capture_patience_ms);

    static const QRegularExpression packet_line(R"(IP (\S+) > (\S+): UDP, length (\d+))");
    static const QRegularExpression bytes_line(R"(^\s+0x[0-9a-f]{4}:\s+([0-9a-f ]+)$)");
    QList<Captured_Datagram> datagrams;
    for (const QString& line : QString::fromLatin1(reader.readAll()).split('\n')) {
        if (const auto packet = packet_line.match(line); packet.hasMatch()) {
            datagrams.append({packet.captured(1), packet.captured(2), {}});
        } else if (const auto bytes = bytes_line.match(line);
                   bytes.hasMatch() && !datagrams.isEmpty()) {
            datagrams.last().payload += QByteArray::fromHex(bytes.captured(1).toLatin1());
        }
    }
    for (Captured_Datagram& datagram : datagrams) {
        datagram.payload.remove(0, header_bytes);
    }
    return datagrams;
}

// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <chrono>
#include <vector>

/// The faults of answers. With the initial values every answer is complete and immediate. Several
/// faults can be set at the same time.
struct Fault_Plan {
    std::chrono::milliseconds delay{0};     ///< before the first byte of each answer
    int chunk_size = 0;                     ///< bytes in one piece; 0 leaves the answer in one
    std::chrono::milliseconds chunk_gap{5}; ///< between two pieces, so that they arrive separately
    bool crlf = false;                      ///< lines end in CR LF
    bool nul = false;                       ///< a NUL byte is in the middle of the answer
    bool invalid_utf8 = false;              ///< the first line ends with bytes that are not UTF-8
    bool oversize = false;                  ///< the answer is longer than 1000 characters
    bool markup = false;                    ///< the hotkey and the custom names are written as HTML
    bool silence = false;                   ///< no answer at all
    bool disappearance = false;             ///< the unit disconnects instead of answering
    QByteArray missing_key;                 ///< lines that contain this key are left out

    bool operator==(const Fault_Plan&) const = default;
};

/// A piece of an answer, and how long after the piece before it is sent.
struct Timed_Chunk {
    std::chrono::milliseconds pause{0};
    QByteArray bytes;

    bool operator==(const Timed_Chunk&) const = default;
};

/// The text of an answer under a plan: everything but the timing and the cutting.
QByteArray corrupt_text(const Fault_Plan& plan, const QByteArray& answer);

/// The pieces in which an answer is sent, in order; none with silence or disappearance, and none
/// for an empty answer.
std::vector<Timed_Chunk> plan_chunks(const Fault_Plan& plan, const QByteArray& answer);

// SPDX-License-Identifier: MIT

#include "benchmarks/row.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

// Marks the lines that are rows, so that other output of a program is not read as a row.
const QString row_mark = QStringLiteral("row");
constexpr QChar separator = u'\t';
constexpr int column_count = 5;

QString verdict_text(Row::Verdict verdict) {
    switch (verdict) {
    case Row::Verdict::reached:
        return "ok";
    case Row::Verdict::missed:
        return "missed";
    case Row::Verdict::information:
        break;
    }
    return "";
}

Row::Verdict verdict_of(const QString& text) {
    for (const Row::Verdict verdict : {Row::Verdict::reached, Row::Verdict::missed}) {
        if (text == verdict_text(verdict)) {
            return verdict;
        }
    }
    return Row::Verdict::information;
}

QStringList columns_of(const Row& row) {
    return {row.what, row.against, row.figure, row.aim, verdict_text(row.verdict)};
}

} // namespace

Row row_with_limit(const QString& what, const QString& against, const QString& figure,
                   double measured, double limit, const QString& aim) {
    const Row::Verdict verdict = measured <= limit ? Row::Verdict::reached : Row::Verdict::missed;
    return {what, against, figure, aim, verdict};
}

Row ratio_row(const QString& what, const QString& against, const Samples& a, const Samples& b,
              const QString& unit, std::optional<double> aim) {
    const double ratio = median_ratio(a, b);
    const QString figure =
        QString("%1 (%2 / %3 %4)")
            .arg(readable(ratio), readable(median(a)), readable(median(b)), unit);
    if (!aim) {
        return {what, against, figure, "", Row::Verdict::information};
    }
    return row_with_limit(what, against, figure, ratio, *aim,
                          "at most " + (*aim < 0.1 ? "1/" + readable(1 / *aim) : readable(*aim)));
}

QString readable(double number) {
    constexpr double hundred = 100;
    constexpr double ten = 10;
    constexpr double tenth = 0.1;
    const double size = std::abs(number);
    const int decimals = size >= hundred ? 0 : size >= ten ? 1 : size >= tenth ? 3 : 4;
    QString text = QString::number(number, 'f', decimals);
    if (text.contains('.')) {
        while (text.endsWith('0')) {
            text.chop(1);
        }
        if (text.endsWith('.')) {
            text.chop(1);
        }
    }
    return text;
}

QByteArray to_lines(const Rows& rows) {
    QByteArray lines;
    for (const Row& row : rows) {
        lines += (row_mark + separator + columns_of(row).join(separator)).toUtf8() + '\n';
    }
    return lines;
}

Rows rows_in(const QByteArray& text) {
    Rows rows;
    for (const QString& line : QString::fromUtf8(text).split('\n')) {
        const QStringList parts = line.split(separator);
        if (parts.size() == column_count + 1 && parts[0] == row_mark) {
            rows.append({parts[1], parts[2], parts[3], parts[4], verdict_of(parts[5])});
        }
    }
    return rows;
}

QString table_of(const Rows& rows) {
    QList<QStringList> lines = {{"what", "compared with", "median ratio or figure", "target", ""}};
    for (const Row& row : rows) {
        lines.append(columns_of(row));
    }
    std::array<qsizetype, column_count> widths{};
    for (const QStringList& line : std::as_const(lines)) {
        for (std::size_t i = 0; i < column_count; ++i) {
            widths[i] = std::max(widths[i], line[static_cast<int>(i)].size());
        }
    }
    QStringList ruler;
    for (const qsizetype width : widths) {
        ruler.append(QString(width, '-'));
    }
    lines.insert(1, ruler);

    QString table;
    for (const QStringList& line : std::as_const(lines)) {
        table += '|';
        for (std::size_t i = 0; i < column_count; ++i) {
            table += ' ' + line[static_cast<int>(i)].leftJustified(widths[i]) + " |";
        }
        table += '\n';
    }
    return table;
}
